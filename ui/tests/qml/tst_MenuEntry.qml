import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "MenuEntry"

    Component {
        id: subject

        MenuList {
            entries: test.tuner.tunings
            width: 300
            height: 1000
        }
    }

    SignalSpy {
        id: picked

        signalName: "picked"
    }

    function test_shows_its_title_and_is_as_wide_as_the_menu() {
        const entry = entryOf(make(subject), "Drop D");
        compare(texts(entry), ["Drop D"]);
        compare(entry.width, 300);
    }

    function test_the_current_one_has_a_checkmark() {
        const list = make(subject);
        for (const entry of all(list, MenuEntry)) {
            const mark = all(entry, Symbol)[0];
            compare(mark.kind, Symbol.Checkmark);
            compare(mark.visible, entry.title === "Standard", entry.title);
        }
    }

    function test_a_click_picks_it() {
        const list = make(subject);
        picked.clear();
        picked.target = list;
        mouseClick(entryOf(list, "Drop D"));
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-dropd");
    }

    function test_the_mouse_highlights_it() {
        const list = make(subject);
        const entry = entryOf(list, "Drop D");
        verify(!entry.highlighted);
        mouseMove(entry, 20, 10);
        mouseMove(entry, 21, 10);
        tryVerify(() => entry.highlighted);
    }

    function test_a_screen_reader_can_press_it() {
        const list = make(subject);
        picked.clear();
        picked.target = list;
        entryOf(list, "Drop D").Accessible.pressAction();
        compare(picked.count, 1);
    }

    function test_tells_a_screen_reader_whether_it_is_chosen() {
        const list = make(subject);
        compare(entryOf(list, "Drop D").Accessible.role, Accessible.MenuItem);
        compare(entryOf(list, "Drop D").Accessible.name, "Drop D");
        verify(entryOf(list, "Drop D").Accessible.checkable);
        verify(!entryOf(list, "Drop D").Accessible.checked);
        verify(entryOf(list, "Standard").Accessible.checked);
    }

    function test_is_not_told_as_something_to_check_in_a_list_without_a_choice() {
        const list = make(subject, {
                entries: tuner.helpMenu
            });
        verify(!entryOf(list, "Privacy Policy").Accessible.checkable);
    }
}
