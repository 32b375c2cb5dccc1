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

        Item {
            property real start: 300

            x: 20
            y: start
            width: 200
            height: 40

            PullDownMenu {
                entries: test.tuner.tunings
            }
        }
    }

    SignalSpy {
        id: picked

        signalName: "picked"
    }

    function menu(properties) {
        const popup = popupOf(make(subject, properties));
        picked.clear();
        picked.target = popup;
        return popup;
    }

    function verifyInsideTheWindow(popup) {
        const place = popup.contentItem.mapToItem(null, 0, 0);
        verify(place.y - popup.padding >= 0, `starts at ${place.y - popup.padding}`);
        const end = place.y + popup.contentItem.height + popup.padding;
        verify(end <= test.Window.height, `ends at ${end} of ${test.Window.height}`);
    }

    function test_is_closed_at_first() {
        verify(!menu().visible);
    }

    function test_fits_into_a_window_of_680_points_and_scrolls_data() {
        return [0, 300, 640].map(start => ({
                    tag: `from a control at ${start}`,
                    start: start
                }));
    }

    function test_fits_into_a_window_of_680_points_and_scrolls(row) {
        tryCompare(test.Window, "height", 680);
        const popup = menu({
                start: row.start
            });
        const list = open(popup);
        verifyInsideTheWindow(popup);
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
        const popup = menu();
        const list = open(popup);
        mouseClick(entryOf(list, "Drop D"));
        tryCompare(popup, "visible", false);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-dropd");
    }

    function test_the_keyboard_picks_and_closes() {
        const popup = menu();
        open(popup);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        tryCompare(popup, "visible", false);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-half");
    }

    function test_escape_closes_without_a_choice() {
        const popup = menu();
        open(popup);
        keyClick(Qt.Key_Escape);
        tryCompare(popup, "visible", false);
        compare(picked.count, 0);
    }

    function test_a_press_beside_it_closes_without_a_choice() {
        const popup = menu({
                start: 0
            });
        open(popup);
        mouseClick(test, 410, 670);
        tryCompare(popup, "visible", false);
        compare(picked.count, 0);
    }
}
