// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "ConcertPitch"

    function referenceRow() {
        return showSized("screen/ReferenceRow", {
                width: 364
            });
    }

    function selected(row) {
        return all(row, QuickPitchChip).filter(each => each.selected).map(each => each.modelData);
    }

    function openList(row) {
        mouseClick(buttonOf(row, tuner.concertPitchTitle));
        return listOf(only(row, PullDownMenu));
    }

    function test_a4_has_a_number_and_a_title_and_may_have_a_quick_chip_data() {
        return table(["a4", "number", "title", "quick"], [
                [440, "A4  440", "440  Modern", [440]],
                [431.6, "A4  432", "432", [432]],
                [441, "A4  441", "Custom", []]
            ]);
    }

    function test_a4_has_a_number_and_a_title_and_may_have_a_quick_chip(row) {
        const reference = referenceRow();
        tuner.a4 = row.a4;
        compare(texts(reference).slice(0, 2), [row.number, row.title]);
        compare(selected(reference), row.quick);
    }

    function test_a_tap_on_a_quick_chip_sets_a4() {
        const row = referenceRow();
        for (const pitch of [415, 432, 440, 466]) {
            mouseClick(buttonOf(row, `${pitch} Hz`));
            compare(tuner.a4, pitch);
            compare(selected(row), [pitch]);
        }
    }

    function test_choosing_from_the_menu_sets_a4() {
        const row = referenceRow();
        const list = openList(row);
        compare(all(list.contentItem, MenuEntry).length, 11);
        mouseClick(entryOf(list, "415  Baroque"));
        compare(tuner.a4, 415);
        compare(selected(row), [415]);
    }

    function test_the_menu_ends_where_its_button_ends_and_shows_whole_titles() {
        const row = referenceRow();
        const button = buttonOf(row, "440  Modern");
        const list = openList(row);
        const end = item => item.mapToItem(test, item.width, 0).x;
        fuzzyCompare(end(list.parent), end(button), 0.01);
        textItems(list.contentItem).forEach(each => verify(!each.truncated, each.text));
    }

    function test_the_stepper_cannot_go_below_377_or_above_560_data() {
        return table(["name", "other", "end", "symbol"], [
                ["Lower", "Raise", 377, Symbol.Minus],
                ["Raise", "Lower", 560, Symbol.Plus]
            ]);
    }

    function test_the_stepper_cannot_go_below_377_or_above_560(row) {
        const stepper = only(referenceRow(), Stepper);
        const [button, other] = [buttonOf(stepper, row.name), buttonOf(stepper, row.other)];
        const symbol = only(button, Symbol);
        compare(symbol.kind, row.symbol);
        tuner.a4 = row.end;
        mouseClick(button);
        compare(tuner.a4, row.end);
        verify(!button.enabled);
        compareColor(symbol.color, Shades.unavailable);
        mouseClick(other);
        compare(Math.abs(tuner.a4 - row.end), 1);
        verify(button.enabled);
        compareColor(symbol.color, "white");
        mouseClick(button);
        compare(tuner.a4, row.end);
    }

    // Without a tuner that clamps the value.
    function test_a_step_that_would_pass_the_end_stops_there_and_at_the_end_there_is_none() {
        const stepper = makePart("controls/Stepper", {
                minimumValue: 377,
                maximumValue: 560,
                value: 440
            });
        const steps = spy(stepper, "stepped");
        for (const [value, by] of [[559.5, 1], [560, 1], [377.5, -1], [377, -1]]) {
            stepper.value = value;
            stepper.step(by);
        }
        compare(told(steps), [560, 377]);
    }

    function test_the_arrow_keys_step_by_one_and_the_page_keys_by_ten() {
        only(referenceRow(), Stepper).forceActiveFocus();
        const keys = [Qt.Key_Up, Qt.Key_Down, Qt.Key_Down, Qt.Key_PageUp, Qt.Key_PageDown, Qt.Key_A];
        const pitches = keys.map(key => {
                keyClick(key);
                return tuner.a4;
            });
        compare(pitches, [441, 440, 439, 449, 439, 439]);
    }

    function test_the_wheel_steps_by_one_for_each_notch() {
        const stepper = only(referenceRow(), Stepper);
        mouseWheel(stepper, 5, 5, 0, 120);
        compare(tuner.a4, 441);
        mouseWheel(stepper, 5, 5, 0, -240);
        compare(tuner.a4, 439);
        for (let part = 0; part < 4; ++part)
            mouseWheel(stepper, 5, 5, 0, 30);
        compare(tuner.a4, 440);
    }

    function test_a_button_of_the_stepper_goes_on_while_it_is_held_and_leaves_the_keyboard_alone() {
        const raise = buttonOf(referenceRow(), "Raise");
        mousePress(raise);
        probe.fireTimerOf(raise);
        probe.fireTimerOf(raise);
        mouseRelease(raise);
        compare(tuner.a4, 442);
        verify(!raise.activeFocus);
    }
}
