// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Strings"

    // The names of the chips from left to right.
    function order(row) {
        settle(row);
        const chips = all(row, Chip);
        chips.sort((one, other) => one.x - other.x);
        return chips.map(each => each.Accessible.name);
    }

    function selected(row) {
        return all(row, Chip).filter(each => each.selected).map(each => each.Accessible.name);
    }

    function test_left_handed_chips_stand_high_to_low_and_still_lock_their_strings_own_index() {
        const row = showSized("screen/StringRow");
        tuner.leftHanded = true;
        compare(order(row), ["Auto", "E4", "B3", "G3", "D3", "A2", "E2"]);
        mouseClick(buttonOf(row, "A2"));
        compare(tuner.lockedString, 1);
        tuner.leftHanded = false;
        compare(order(row), ["Auto", "E2", "A2", "D3", "G3", "B3", "E4"]);
        tuner.chooseTuning("g8-standard");
        compare(order(row), ["Auto", "F♯1", "B1", "E2", "A2", "D3", "G3", "B3", "E4"]);
    }

    function test_tapping_the_locked_chip_again_selects_auto_and_tapping_another_moves_the_lock() {
        const row = showSized("screen/StringRow");
        const taps = ["A2", "A2", "A2", "B3", "Auto", "Auto"].map(name => {
                mouseClick(buttonOf(row, name));
                return [tuner.lockedString, ...selected(row)];
            });
        compare(taps, [[1, "A2"], [-1, "Auto"], [1, "A2"], [4, "B3"], [-1, "Auto"], [-1, "Auto"]]);
    }

    function test_the_string_that_is_heard_glows_and_is_plain_while_nothing_is_heard() {
        const row = showSized("screen/StringRow");
        const compareFill = (name, color) => compareColor(colorOf(buttonOf(row, name)), color);
        tuner.toggleLock(1);
        hearCents(15);
        compareFill("A2", Qt.alpha(TunerTheme.gold, 0.16));
        hearCents(0);
        compareFill("A2", Qt.alpha(TunerTheme.green, 0.35));
        compareFill("E2", TunerTheme.card);
        tuner.hearNothing();
        compareFill("A2", TunerTheme.card);
    }

    function test_the_switch_turns_the_order_and_follows_the_tuner() {
        const handed = buttonOf(show("screen/LeftHandedRow"), "Left-handed string order");
        for (const [turned, text] of [[true, handed.width - 2], [false, 2]]) {
            mouseClick(handed, text, handed.height / 2);
            compare([tuner.leftHanded, handed.checked], [turned, turned]);
        }
        tuner.leftHanded = true;
        verify(handed.checked);
    }

    function test_the_knob_of_the_switch_is_inside_it_at_the_end_that_tells_its_state() {
        const [track, knob] = all(buttonOf(show("screen/LeftHandedRow"), "Left-handed string order"), Capsule);
        const room = () => [knob.x, track.width - knob.x - knob.width];
        const [before, after] = room();
        verify(before < after);
        verifyInside(knob, track);
        compareColor(knob.color, "white");
        tuner.leftHanded = true;
        eventually(() => room()[0] === after && room()[1] === before);
        compareColor(track.color, TunerTheme.gold);
        compareColor(knob.color, TunerTheme.bg);
    }
}
