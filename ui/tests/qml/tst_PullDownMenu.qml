import QtQuick
import QtTest
import Corvane

// In the smallest window, where the longest list does not fit.
ScreenTest {
    id: test

    name: "PullDownMenu"
    width: 420
    height: 680

    Component {
        id: subject

        PlainButton {
            id: face

            property real start: 300
            property alias menu: menu

            x: 20
            y: start
            width: 200
            height: 40
            onClicked: menu.open()

            PullDownMenu {
                id: menu

                control: face
                entries: test.tuner.tunings
            }
        }
    }

    SignalSpy {
        id: picked

        signalName: "picked"
    }

    function menu(properties) {
        const made = make(subject, properties).menu;
        picked.clear();
        picked.target = made;
        return made;
    }

    function verifyInsideTheWindow(menu) {
        const ground = menu.shown.list.parent;
        const place = ground.mapToItem(null, 0, 0);
        verify(place.y >= 8, `starts at ${place.y}`);
        verify(place.y + ground.height <= test.Window.height - 8, `ends at ${place.y + ground.height} of ${test.Window.height}`);
    }

    function test_there_is_nothing_of_it_until_it_opens_and_after_it_was_closed() {
        const closed = menu();
        const before = all(test.Window.contentItem, MenuEntry).length;
        verify(!closed.opened);
        compare(before, 0);
        open(closed);
        verify(all(test.Window.contentItem, MenuEntry).length > 0);
        keyClick(Qt.Key_Escape);
        tryVerify(() => all(test.Window.contentItem, MenuEntry).length === 0);
    }

    function test_fits_into_a_window_of_680_points_and_scrolls_data() {
        return [0, 300, 640].map(start => ({
                    tag: `from a control at ${start}`,
                    start: start
                }));
    }

    function test_fits_into_a_window_of_680_points_and_scrolls(row) {
        tryCompare(test.Window, "height", 680);
        const opened = menu({
                start: row.start
            });
        const list = open(opened);
        verifyInsideTheWindow(opened);
        verify(list.contentHeight > list.height, "there is something to scroll");
    }

    function test_a_short_list_is_no_higher_than_its_entries() {
        tuner.instrument = 2;
        const list = open(menu());
        compare(list.height, list.contentHeight);
    }

    function test_opens_at_the_entry_that_is_chosen() {
        tuner.chooseTuning("g12-standard");
        const list = open(menu());
        compare(list.currentIndex, 22);
        compare(list.currentItem.title, "12-string standard");
        verifyInside(list.currentItem, list);
    }

    function test_a_click_picks_and_closes() {
        const opened = menu();
        const list = open(opened);
        mouseClick(entryOf(list, "Drop D"));
        verify(!opened.opened);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-dropd");
    }

    function test_the_keyboard_picks_and_closes() {
        const opened = menu();
        open(opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        verify(!opened.opened);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-half");
    }

    function test_escape_closes_without_a_choice() {
        const opened = menu();
        open(opened);
        keyClick(Qt.Key_Escape);
        verify(!opened.opened);
        compare(picked.count, 0);
    }

    function test_a_press_beside_it_closes_without_a_choice() {
        const opened = menu({
                start: 0
            });
        open(opened);
        mouseClick(test, 410, 670);
        verify(!opened.opened);
        compare(picked.count, 0);
    }

    function test_a_press_on_its_control_closes_it() {
        const opened = menu({
                start: 0
            });
        open(opened);
        mouseClick(opened.control, 5, 5);
        verify(!opened.opened);
    }

    function test_space_opens_it_again_after_escape() {
        const opened = menu();
        opened.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(opened.opened);
        keyClick(Qt.Key_Escape);
        verify(opened.control.visualFocus);
        keyClick(Qt.Key_Space);
        verify(opened.opened);
    }

    function test_a_choice_by_the_keyboard_gives_it_back_to_the_control() {
        const opened = menu();
        const next = make(subject);
        opened.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        verify(opened.control.visualFocus);
        verify(!opened.opened, "the Return that chose does not open it again");
        keyClick(Qt.Key_Tab);
        verify(next.activeFocus);
    }

    function test_a_list_that_a_key_opens_shows_where_the_keyboard_is() {
        const opened = menu();
        opened.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(listOf(opened).byKeyboard);
        keyClick(Qt.Key_Escape);
        mouseClick(opened.control);
        verify(!listOf(opened).byKeyboard);
    }

    function test_a_choice_by_a_press_gives_the_keyboard_back_unseen() {
        const opened = menu();
        mouseClick(opened.control);
        mouseClick(entryOf(listOf(opened), "Drop D"));
        verify(opened.control.activeFocus);
        verify(!opened.control.visualFocus);
    }
}
