import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "QuickPitches"

    Component {
        id: subject

        QuickPitches {
            tuner: test.tuner
        }
    }

    function selected(row) {
        return all(row, QuickPitchChip).filter(each => each.selected).map(each => String(each.modelData));
    }

    function test_offers_four_pitches_in_rising_order() {
        compare(texts(make(subject)), ["415", "432", "440", "466"]);
    }

    function test_modern_pitch_is_selected_at_first() {
        compare(selected(make(subject)), ["440"]);
    }

    function test_431_point_6_selects_432() {
        const row = make(subject);
        tuner.a4 = 431.6;
        compare(selected(row), ["432"]);
    }

    function test_441_selects_none() {
        const row = make(subject);
        tuner.a4 = 441;
        compare(selected(row), []);
    }

    function test_there_is_no_dead_gap_between_the_chips() {
        const row = make(subject);
        settle(row);
        const chip = buttonOf(row, "415 Hz");
        mouseClick(row, chip.x + chip.width + 3, chip.height / 2);
        compare(tuner.wholeHertz, 415);
        mouseClick(row, chip.x + chip.width + 5, chip.height / 2);
        compare(tuner.wholeHertz, 432);
    }

    function test_a_tap_moves_the_selection() {
        const row = make(subject);
        mouseClick(buttonOf(row, "466 Hz"));
        compare(tuner.a4, 466);
        compare(selected(row), ["466"]);
    }
}
