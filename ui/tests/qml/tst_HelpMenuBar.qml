import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "HelpMenuBar"

    Component {
        id: subject

        HelpMenuBar {
            width: 480
            tuner: test.tuner
        }
    }

    function test_holds_help_alone() {
        const bar = make(subject);
        compare(texts(bar), ["Help"]);
        compare(bar.Accessible.role, Accessible.MenuBar);
        compare(buttonOf(bar, "Help").Accessible.role, Accessible.ButtonMenu);
    }

    function test_help_holds_the_privacy_policy_alone() {
        const help = buttonOf(make(subject), "Help");
        mouseClick(help);
        const list = listOf(menuOf(help));
        compare(list.count, 1);
        compare(texts(list.contentItem), ["Privacy Policy"]);
    }

    function test_the_privacy_policy_opens_in_the_browser() {
        const help = buttonOf(make(subject), "Help");
        const menu = menuOf(help);
        const list = open(menu);
        mouseClick(entryOf(list, "Privacy Policy"));
        verify(!menu.opened);
        compare(tuner.opened.length, 1);
    }

    function test_alt_and_h_open_help_from_anywhere_and_once() {
        const bar = make(subject);
        const menu = menuOf(buttonOf(bar, "Help"));
        keyClick(Qt.Key_H, Qt.AltModifier);
        verify(menu.opened);
        const shown = menu.shown;
        keyClick(Qt.Key_H, Qt.AltModifier);
        compare(menu.shown, shown);
        keyClick(Qt.Key_Escape);
        verify(!menu.opened);
        verify(buttonOf(bar, "Help").visualFocus);
    }

    function test_the_privacy_policy_opens_from_the_keyboard() {
        const help = buttonOf(make(subject), "Help");
        help.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(menuOf(help).opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(tuner.opened.length, 1);
    }
}
