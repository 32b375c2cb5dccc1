// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Focus"

    Component {
        id: subject

        Pressable {
            width: 40
            height: 20
        }
    }

    Component {
        id: otherWindow

        Window {
            width: 50
            height: 50
            visible: true
        }
    }

    function test_a_press_takes_the_keyboard_without_showing_it() {
        const area = make(subject);
        mouseClick(area);
        verify(area.activeFocus && !area.visualFocus);
        mouseMove(area, 5, 5);
        eventually(() => area.hovered);
        area.focus = false;
        verify(area.hovered, "the mouse is over it still");
        mouseMove(area, 60, 60);
        eventually(() => !area.hovered);
        area.forceActiveFocus(Qt.TabFocusReason);
        mouseClick(area);
        verify(!area.visualFocus);
    }

    function leaveAndComeBack(area) {
        createTemporaryObject(otherWindow, test).requestActivate();
        eventually(() => !area.activeFocus);
        test.Window.window.requestActivate();
        eventually(() => area.activeFocus);
    }

    function test_a_window_that_comes_back_shows_the_keyboard_as_it_was_left() {
        const area = make(subject);
        area.forceActiveFocus(Qt.TabFocusReason);
        // The window of an earlier test may have been active.
        test.Window.window.requestActivate();
        eventually(() => area.activeFocus);
        leaveAndComeBack(area);
        verify(area.visualFocus);
        mouseClick(area);
        leaveAndComeBack(area);
        verify(!area.visualFocus);
    }

    function test_the_arrow_keys_go_from_button_to_button_of_a_row_and_stop_at_the_ends() {
        const row = show("screen/QuickPitches");
        show("screen/QuickPitches");
        const buttons = all(row, QuickPitchChip);
        const places = [];
        buttons[1].forceActiveFocus(Qt.TabFocusReason);
        for (const key of ["Right", "Right", "Right", "Left", "Home", "Left", "End"]) {
            keyClick(Qt[`Key_${key}`]);
            places.push(buttons.findIndex(each => each.visualFocus));
        }
        compare(places, [2, 3, 3, 2, 0, 0, 3]);
    }

    function test_the_tab_key_reaches_every_control_of_the_window_and_shows_where_it_is() {
        const window = showWindow();
        const names = [];
        buttonOf(window.contentItem, "Privacy Policy").forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 21; ++i) {
            keyClick(Qt.Key_Tab);
            const item = window.activeFocusItem;
            names.push(item.Accessible.name);
            const rings = all(window.contentItem, FocusRing).filter(each => each.visible);
            compare(rings.length, 1, item.Accessible.name);
            const around = rings[0].mapToItem(item, 0, 0, rings[0].width, rings[0].height);
            verify(around.top < 0 && around.bottom > item.height, `${item.Accessible.name} ${around}`);
        }
        const instruments = ["Guitar", "Bass", "Piano", "Left-handed string order", "Standard"];
        const strings = ["Auto", "E2", "A2", "D3", "G3", "B3", "E4"];
        const pitches = ["440  Modern", "Concert pitch in hertz", "415 Hz", "432 Hz", "440 Hz", "466 Hz"];
        const ends = ["Play reference", "Privacy Policy"];
        compare(names, ["Help", ...instruments, ...strings, ...pitches, ...ends]);
    }

    function test_a_list_opened_by_keyboard_starts_at_an_entry_data() {
        return table(["button", "title"], [["Standard", "Standard"], ["440  Modern", "440  Modern"], ["Help", "Privacy Policy"]]);
    }

    function test_a_list_opened_by_keyboard_starts_at_an_entry(row) {
        const window = showWindow();
        const button = buttonOf(window.contentItem, row.button);
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(listOf(only(button, PullDownMenu)).currentItem.title, row.title);
        keyClick(Qt.Key_Escape);
    }
}
