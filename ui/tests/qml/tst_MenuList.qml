import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "MenuList"

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

    function watched(properties) {
        const list = make(subject, properties);
        picked.clear();
        picked.target = list;
        list.forceActiveFocus();
        return list;
    }

    function headings(list) {
        const sections = all(list.contentItem, MenuSection).filter(each => each.title !== "");
        sections.sort((one, other) => one.mapToItem(list, 0, 0).y - other.mapToItem(list, 0, 0).y);
        return sections.map(each => each.title);
    }

    function test_lists_every_tuning_under_the_heading_of_its_group() {
        const list = make(subject);
        compare(list.count, 23);
        const shown = menuTexts(list);
        compare(shown.length, 23 + 6);
        compare(headings(list), ["6-string", "Open and alternate", "Baritone", "7-string", "8-string", "12-string"]);
        compare(shown.slice(0, 2), ["6-string", "Standard"]);
        compare(shown.slice(10, 12), ["Open and alternate", "DADGAD"]);
    }

    function test_its_headings_follow_the_instrument() {
        const list = make(subject);
        tuner.instrument = 1;
        tryVerify(() => list.count === 9);
        waitForRendering(list);
        compare(headings(list), ["4-string", "5-string", "6-string"]);
        tuner.instrument = 0;
        waitForRendering(list);
        compare(headings(list).length, 6);
    }

    function test_wants_to_be_as_high_as_its_entries() {
        const list = make(subject);
        compare(list.implicitHeight, list.contentHeight);
    }

    function test_starts_at_the_entry_that_is_chosen() {
        tuner.chooseTuning("g8-drope");
        const list = make(subject, {
                height: 300
            });
        list.showChosen();
        settle(list);
        compare(list.currentIndex, 21);
        verify(list.contentY > 0);
        verifyInside(list.currentItem, list);
    }

    function test_starts_at_the_top_when_no_entry_is_chosen() {
        const list = make(subject, {
                entries: tuner.concertPitches
            });
        list.showChosen();
        compare(list.currentIndex, -1);
    }

    function test_the_arrows_walk_and_return_picks_data() {
        return [
            {
                tag: "Return",
                key: Qt.Key_Return
            },
            {
                tag: "Enter",
                key: Qt.Key_Enter
            },
            {
                tag: "Space",
                key: Qt.Key_Space
            }
        ];
    }

    function test_the_arrows_walk_and_return_picks(row) {
        const list = watched();
        list.showChosen();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Up);
        keyClick(row.key);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-half");
    }

    function test_nothing_is_picked_where_no_entry_is_current() {
        const list = watched({
                entries: tuner.concertPitches
            });
        list.showChosen();
        keyClick(Qt.Key_Return);
        compare(picked.count, 0);
    }

    function test_scrolls_to_the_entry_that_the_arrows_reach() {
        const list = watched({
                height: 200
            });
        list.showChosen();
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_Down);
        compare(list.currentIndex, 20);
        const end = list.currentItem.y + list.currentItem.height;
        tryVerify(() => end <= list.contentY + list.height + 0.01);
        verifyInside(list.currentItem, list);
    }

    function test_home_and_end_go_to_the_ends() {
        const list = watched({
                height: 200
            });
        list.showChosen();
        keyClick(Qt.Key_End);
        compare(list.currentIndex, 22);
        tryVerify(() => list.atYEnd);
        keyClick(Qt.Key_Home);
        compare(list.currentIndex, 0);
        tryVerify(() => list.atYBeginning);
    }

    function test_pages_go_by_what_is_to_be_seen_and_no_further_than_the_ends() {
        const list = watched({
                height: 200
            });
        list.showChosen();
        keyClick(Qt.Key_PageDown);
        compare(list.currentIndex, 6);
        keyClick(Qt.Key_PageUp);
        compare(list.currentIndex, 0);
        keyClick(Qt.Key_PageUp);
        compare(list.currentIndex, 0);
        for (let i = 0; i < 5; ++i)
            keyClick(Qt.Key_PageDown);
        compare(list.currentIndex, 22);
    }

    function test_a_letter_goes_to_the_next_entry_that_starts_with_it() {
        const list = watched();
        list.showChosen();
        const titles = [];
        for (const key of ["d", "d", "D", "x"]) {
            keyClick(key);
            titles.push(list.currentItem.title);
        }
        compare(titles, ["Drop D", "Double drop D", "Drop C", "Drop C"]);
        compare(picked.count, 0);
    }

    function test_a_letter_with_alt_or_control_is_no_letter() {
        const list = watched();
        list.showChosen();
        keyClick(Qt.Key_D, Qt.AltModifier);
        keyClick(Qt.Key_D, Qt.ControlModifier);
        compare(list.currentIndex, 0);
    }

    function test_the_keyboard_is_on_the_entry_that_the_arrows_reach() {
        const list = watched();
        list.showChosen();
        verify(entryOf(list, "Standard").activeFocus);
        keyClick(Qt.Key_Down);
        verify(entryOf(list, "Half step down").activeFocus);
        verify(!entryOf(list, "Standard").activeFocus);
        keyClick(Qt.Key_End);
        verify(entryOf(list, "12-string standard").activeFocus);
    }

    function test_leaves_room_for_a_checkmark_where_there_can_be_one() {
        const marked = make(subject);
        const unmarked = make(subject, {
                entries: tuner.concertPitches
            });
        const start = (list, title) => textItem(list, title).mapToItem(list, 0, 0).x;
        compare(start(unmarked, "415  Baroque"), 10);
        verify(start(marked, "Drop D") > all(marked, Symbol)[0].x + all(marked, Symbol)[0].width);
    }

    function test_scrolls_with_the_wheel() {
        const list = make(subject, {
                height: 200
            });
        mouseWheel(list, 100, 100, 0, -600);
        tryVerify(() => list.contentY > 0);
    }

    function test_a_pointer_that_lies_still_does_not_disturb_the_arrows() {
        const list = watched({
                height: 200
            });
        list.showChosen();
        mouseMove(list, 100, 100);
        mouseMove(list, 101, 100);
        tryVerify(() => list.currentIndex > 0);
        const start = list.currentIndex;
        for (let i = 1; i <= 10; ++i) {
            keyClick(Qt.Key_Down);
            waitForRendering(list);
            compare(list.currentIndex, start + i);
        }
    }

    function rings(list) {
        return all(list, MenuEntry).filter(each => groundOf(each).borderWidth > 0).map(each => each.title);
    }

    function test_a_ring_shows_where_the_keyboard_is_while_it_is_used() {
        const list = watched();
        list.showChosen();
        compare(rings(list), []);
        keyClick(Qt.Key_Down);
        compare(rings(list), ["Half step down"]);
        const place = entryOf(list, "Drop D").mapToItem(null, 20, 10);
        list.highlightAt(place);
        compare(list.currentItem.title, "Drop D");
        compare(rings(list), []);
    }

    function test_a_pointer_that_lies_where_the_list_opens_leaves_the_highlight_alone() {
        mouseMove(test, 100, 100);
        const list = watched();
        list.showChosen();
        waitForRendering(list);
        mouseMove(test, 100, 100);
        compare(list.currentIndex, 0);
    }

    function test_a_pointer_on_a_heading_leaves_the_highlight_alone() {
        const list = watched();
        list.showChosen();
        mouseMove(list, 100, 5);
        mouseMove(list, 101, 5);
        compare(list.currentIndex, 0);
    }

    function test_tells_a_screen_reader_that_it_is_a_menu() {
        compare(make(subject).Accessible.role, Accessible.PopupMenu);
    }
}
