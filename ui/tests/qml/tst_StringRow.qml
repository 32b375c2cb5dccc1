import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "StringRow"

    Component {
        id: subject

        StringRow {
            property size area: test.ideal

            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    // The names of the string chips from left to right.
    function order(row) {
        settle(row);
        const chips = all(row, StringChip);
        chips.sort((one, other) => one.x - other.x);
        return chips.map(each => each.Accessible.name);
    }

    function stringChip(row, name) {
        return buttonOf(row, name);
    }

    function auto(row) {
        return all(row, AutoChip)[0];
    }

    function test_auto_comes_first_then_the_strings_low_to_high() {
        const row = make(subject);
        compare(order(row), ["E2", "A2", "D3", "G3", "B3", "E4"]);
        compare(auto(row).x, 0);
        verify(stringChip(row, "E2").x > 0);
    }

    function test_left_handed_auto_comes_first_then_the_strings_high_to_low() {
        tuner.leftHanded = true;
        const row = make(subject);
        compare(order(row), ["E4", "B3", "G3", "D3", "A2", "E2"]);
        compare(auto(row).x, 0);
    }

    function test_turning_left_handed_turns_the_row_on_the_screen() {
        const row = make(subject);
        tuner.leftHanded = true;
        compare(order(row), ["E4", "B3", "G3", "D3", "A2", "E2"]);
        tuner.leftHanded = false;
        compare(order(row), ["E2", "A2", "D3", "G3", "B3", "E4"]);
    }

    function test_left_handed_a_tap_still_locks_the_strings_own_index() {
        tuner.leftHanded = true;
        const row = make(subject);
        mouseClick(stringChip(row, "A2"));
        compare(tuner.lockedString, 1);
        verify(stringChip(row, "A2").selected);
    }

    function test_tapping_the_locked_chip_again_selects_auto() {
        const row = make(subject);
        mouseClick(stringChip(row, "A2"));
        verify(!auto(row).selected);
        mouseClick(stringChip(row, "A2"));
        verify(!tuner.locked);
        verify(auto(row).selected);
    }

    function test_there_is_no_dead_gap_between_the_chips() {
        const row = make(subject);
        settle(row);
        const chip = stringChip(row, "A2");
        mouseClick(row, chip.x - 2, chip.height / 2);
        compare(tuner.lockedString, 1);
        mouseClick(row, chip.x - row.spacing + 2, chip.height / 2);
        compare(tuner.lockedString, 0);
        mouseClick(row, chip.x + chip.width + 2, chip.height / 2);
        compare(tuner.lockedString, 1);
    }

    function test_tapping_another_chip_moves_the_lock() {
        const row = make(subject);
        mouseClick(stringChip(row, "A2"));
        mouseClick(stringChip(row, "B3"));
        compare(tuner.lockedString, 4);
        compare(all(row, StringChip).filter(each => each.selected).map(each => each.Accessible.name), ["B3"]);
    }

    function test_the_string_that_is_heard_glows() {
        const row = make(subject);
        tuner.hear(111);
        compareColor(groundOf(stringChip(row, "A2")).color, faded(TunerTheme.gold, 0.16));
        for (let i = 0; i < 5; ++i)
            tuner.hear(110);
        compareColor(groundOf(stringChip(row, "A2")).color, faded(TunerTheme.green, 0.35));
        compareColor(groundOf(stringChip(row, "E2")).color, TunerTheme.card);
    }

    function test_a_highlighted_string_is_plain_while_nothing_is_heard() {
        const row = make(subject);
        tuner.toggleLock(1);
        tuner.hear(111);
        tuner.hearNothing();
        compareColor(groundOf(stringChip(row, "A2")).color, TunerTheme.card);
        compareColor(groundOf(stringChip(row, "A2")).borderColor, TunerTheme.gold);
    }

    function test_follows_the_tuning() {
        const row = make(subject);
        tuner.chooseTuning("g8-standard");
        compare(order(row), ["F♯1", "B1", "E2", "A2", "D3", "G3", "B3", "E4"]);
        tuner.chooseTuning("g6-dropd");
        compare(order(row), ["D2", "A2", "D3", "G3", "B3", "E4"]);
    }

    function test_its_chips_follow_the_window_data() {
        return [
            {
                tag: "smallest",
                area: smallest,
                chip: 36
            },
            {
                tag: "ideal",
                area: ideal,
                chip: 376 / 9
            },
            {
                tag: "large",
                area: large,
                chip: 54
            }
        ];
    }

    function test_its_chips_follow_the_window(row) {
        const strings = make(subject, {
                area: row.area
            });
        compare(strings.spacing, 6);
        fuzzyCompare(auto(strings).width, row.chip, 1e-9);
        fuzzyCompare(auto(strings).height, row.chip, 1e-9);
        fuzzyCompare(stringChip(strings, "A2").width, row.chip, 1e-9);
        fuzzyCompare(strings.width, 7 * row.chip + 6 * 6, 1e-6);
    }
}
