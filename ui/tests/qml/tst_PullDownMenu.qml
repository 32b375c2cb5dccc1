// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "PullDownMenu"

    property SignalSpy picked
    property SignalSpy beneath

    Component {
        id: subject

        MenuButton {
            tuner: test.tuner
        }
    }

    Component {
        id: wheelMaker

        WheelHandler {
            property bool turned: false

            onWheel: turned = true
        }
    }

    function opened() {
        const button = make(subject);
        picked = spy(button.menu, "picked");
        beneath = spy(button, "clicked");
        button.menu.open();
        listOf(button.menu);
        return button;
    }

    function openedByKeyboard() {
        const button = make(subject);
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(listOf(button.menu).byKeyboard);
        return button;
    }

    function entriesInTheWindow() {
        return all(test.Window.contentItem, MenuEntry).length;
    }

    function touch(item) {
        const finger = touchEvent(item);
        finger.press(0, item, 10, 10).commit();
        finger.release(0, item, 10, 10).commit();
    }

    function test_exists_only_while_open() {
        eventually(() => entriesInTheWindow() === 0);
        opened();
        verify(entriesInTheWindow() > 0);
        keyClick(Qt.Key_Escape);
        eventually(() => entriesInTheWindow() === 0);
    }

    function test_closes_when_its_control_is_destroyed() {
        opened().destroy();
        eventually(() => entriesInTheWindow() === 0);
    }

    function test_a_choice_closes_it_and_is_signalled_once_data() {
        return table(["way", "choose"], [
                ["by a press", list => mouseClick(entryOf(list, "Half step down"))],
                ["by the keyboard", () => [Qt.Key_Down, Qt.Key_Return].forEach(key => keyClick(key))],
                ["by a screen reader", list => entryOf(list, "Half step down").Accessible.pressAction()]
            ]);
    }

    function test_a_choice_closes_it_and_is_signalled_once(row) {
        const menu = opened().menu;
        row.choose(menu.shown.list);
        verify(!menu.opened);
        compare(told(picked), ["g6-half"]);
    }

    function test_a_press_opens_it_and_its_release_chooses_or_closes_data() {
        return table(["where", "place", "stays", "chosen"], [
                ["on an entry", (button, list) => entryOf(list, "Drop D").mapToItem(button, 20, 5), false, ["g6-dropd"]],
                ["on the control", () => Qt.point(9, 9), true, []],
                ["on a heading", (button, list) => list.mapToItem(button, 20, 5), true, []],
                ["outside", () => Qt.point(-20, 10), false, []]
            ]);
    }

    function test_a_press_opens_it_and_its_release_chooses_or_closes(row) {
        const button = make(subject);
        eventually(() => entriesInTheWindow() === 0); // The last list would take the press.
        picked = spy(button.menu, "picked");
        mousePress(button, 5, 5);
        const place = row.place(button, listOf(button.menu));
        mouseMove(button, place.x, place.y);
        mouseRelease(button, place.x, place.y);
        compare([button.menu.opened, told(picked)], [row.stays, row.chosen]);
    }

    function test_input_outside_closes_it_and_reaches_nothing_beneath_data() {
        return table(["way", "leave"], [
                ["by Escape", () => keyClick(Qt.Key_Escape)],
                ["by a press beside it", () => mouseClick(test, 470, 10)],
                ["by a press on its control", button => mouseClick(button, 5, 5)],
                ["by the right button there", button => mouseClick(button, 5, 5, Qt.RightButton)],
                ["by a finger there", button => touch(button)]
            ]);
    }

    function test_input_outside_closes_it_and_reaches_nothing_beneath(row) {
        tuner.instrument = 1; // Its list does not hide the button.
        const button = opened();
        row.leave(button);
        verify(!button.menu.opened);
        compare([picked.count, beneath.count], [0, 0]);
    }

    function test_an_open_list_blocks_mouse_and_wheel_beneath() {
        const button = make(subject);
        mouseMove(button, 10, 10);
        eventually(() => button.hovered);
        button.menu.open();
        eventually(() => !button.hovered);
        const wheel = createTemporaryObject(wheelMaker, button);
        mouseMove(button, 10, 10);
        mouseMove(button, 12, 10);
        mouseWheel(button, 12, 10, 0, 120);
        paint(button); // Qt delivers hover events before a frame.
        verify(!button.hovered && !wheel.turned);
    }

    function test_the_keyboard_stays_in_it() {
        const list = opened().menu.shown.list;
        verify(list.activeFocus && !list.byKeyboard);
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(list.activeFocus);
    }

    function test_a_press_on_its_edge_does_nothing() {
        const menu = opened().menu;
        mouseClick(menu.shown.list.parent, 3, 3);
        verify(menu.opened);
        compare(picked.count, 0);
    }

    function test_after_a_keyboard_close_the_control_shows_its_focus_ring_data() {
        return table(["way", "keys"], [
                ["Escape", [Qt.Key_Escape]],
                ["a choice", [Qt.Key_Down, Qt.Key_Return]]
            ]);
    }

    function test_after_a_keyboard_close_the_control_shows_its_focus_ring(row) {
        const button = openedByKeyboard();
        row.keys.forEach(key => keyClick(key));
        verify(button.visualFocus);
        verify(!button.menu.opened, "the key that chose does not open it again");
    }

    function test_after_a_press_the_control_shows_no_focus_ring() {
        const button = openedByKeyboard();
        mouseClick(entryOf(button.menu.shown.list, "Drop D"));
        verify(button.activeFocus && !button.visualFocus);
        const other = openedByKeyboard();
        mouseClick(test, 470, 10);
        verify(other.activeFocus && !other.visualFocus);
    }

    function test_the_help_menu_holds_exactly_one_item_privacy_policy() {
        const bar = show("screen/HelpMenuBar");
        compare(texts(bar), ["Help"]);
        mouseClick(buttonOf(bar, "Help"));
        const list = listOf(only(bar, PullDownMenu));
        compare(texts(list.contentItem), ["Privacy Policy"]);
        mouseClick(entryOf(list, "Privacy Policy"));
        compare(tuner.opened, 1);
    }

    function test_alt_and_h_open_help_from_anywhere_and_once() {
        const bar = show("screen/HelpMenuBar");
        const menu = only(bar, PullDownMenu);
        keyClick(Qt.Key_H, Qt.AltModifier);
        verify(menu.opened);
        const shown = menu.shown;
        keyClick(Qt.Key_H, Qt.AltModifier);
        menu.open();
        compare(menu.shown, shown);
        keyClick(Qt.Key_Escape);
        verify(!menu.opened);
        verify(buttonOf(bar, "Help").visualFocus);
    }
}
