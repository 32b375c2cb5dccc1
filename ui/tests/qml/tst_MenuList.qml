// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "MenuList"

    property SignalSpy picked

    // With the focus, at the chosen entry.
    function opened(height, entries) {
        const list = makePart("controls/MenuList", {
                entries: entries ?? tuner.tunings,
                width: 300,
                height: height ?? 1000
            });
        picked = spy(list, "picked");
        list.showCurrent("");
        list.forceActiveFocus();
        settle(list);
        return list;
    }

    // Headings from top to bottom.
    function headings(list) {
        const first = all(list.contentItem, MenuRow).filter(each => each.heading !== "");
        first.sort((one, other) => one.y - other.y);
        return first.map(each => each.heading);
    }

    function titles(list, condition) {
        return all(list, MenuEntry).filter(condition).map(each => each.title);
    }

    // The highlighted entry after each of these keys.
    function rowsAfter(list, ...keys) {
        return keys.map(key => {
                keyClick(key);
                return list.currentIndex;
            });
    }

    function test_lists_every_tuning_under_the_heading_of_its_group() {
        const list = opened();
        compare(list.count, 23);
        const groups = ["6-string", "Open and alternate", "Baritone", "7-string", "8-string"];
        compare(headings(list), [...groups, "12-string"]);
        compare(list.implicitHeight, list.contentHeight);
        const y = item => item.mapToItem(list, 0, 0).y;
        const heading = y(textItem(list.contentItem, "Open and alternate"));
        verify(heading > y(entryOf(list, "Drop B")) && heading < y(entryOf(list, "DADGAD")));
    }

    function test_its_headings_follow_the_instrument() {
        const list = opened();
        tuner.instrument = 1;
        paint(list);
        compare(headings(list), ["4-string", "5-string", "6-string"]);
        tuner.instrument = 0;
        paint(list);
        compare(headings(list).length, 6);
    }

    function test_starts_at_the_entry_that_is_chosen() {
        tuner.chooseTuning("g8-drope");
        const list = opened(300);
        compare(list.currentIndex, 21);
        verify(list.contentY > 0);
        verifyInside(list.currentItem, list);
    }

    function test_without_a_chosen_entry_it_starts_at_none_and_picks_none() {
        const list = opened(300, tuner.concertPitches);
        compare([list.currentIndex, list.contentY], [-1, 0]);
        keyClick(Qt.Key_Return);
        list.pick(-1, Qt.TabFocusReason);
        compare(picked.count, 0);
    }

    function test_arrows_move_and_a_key_picks_data() {
        return table(["name"], [["Return"], ["Enter"], ["Space"]]);
    }

    function test_arrows_move_and_a_key_picks(row) {
        compare(rowsAfter(opened(), Qt.Key_Down, Qt.Key_Down, Qt.Key_Up), [1, 2, 1]);
        keyClick(Qt[`Key_${row.name}`]);
        compare([...picked.signalArguments[0]], ["g6-half", Qt.TabFocusReason]);
    }

    function test_scrolls_to_the_entry_that_the_arrows_reach() {
        const list = opened(200);
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_Down);
        compare(list.currentIndex, 20);
        eventually(() => list.currentItem.y + list.currentItem.height <= list.contentY + 200.01);
        verifyInside(list.currentItem, list);
    }

    function test_home_end_and_pages_go_no_further_than_the_ends() {
        const list = opened(200);
        // Of seven visible entries the last is the first of the next page.
        compare(rowsAfter(list, Qt.Key_PageDown, Qt.Key_PageUp, Qt.Key_PageUp), [6, 0, 0]);
        compare(rowsAfter(list, Qt.Key_End, Qt.Key_PageDown), [22, 22]);
        eventually(() => list.atYEnd);
        compare(rowsAfter(list, Qt.Key_PageUp, Qt.Key_Home), [16, 0]);
        eventually(() => list.atYBeginning);
        list.height = 20; // lower than an entry
        compare(rowsAfter(list, Qt.Key_PageDown, Qt.Key_PageDown), [1, 2]);
    }

    function test_a_letter_goes_to_the_next_entry_that_starts_with_it() {
        const list = opened();
        const keys = [["d"], ["d"], ["D"], ["x"], [Qt.Key_B, Qt.ShiftModifier]];
        const reached = keys.map(key => {
                keyClick(...key);
                return list.currentItem.title;
            });
        compare(reached, ["Drop D", "Double drop D", "Drop C", "Drop C", "Baritone"]);
        keyClick(Qt.Key_D, Qt.AltModifier);
        keyClick(Qt.Key_D, Qt.ControlModifier);
        compare(list.currentItem.title, "Baritone");
    }

    function test_the_keyboard_is_on_the_entry_that_the_keys_reach_and_a_ring_shows_it() {
        const list = opened();
        const rings = () => titles(list, each => all(each, ContinuousRectangle)[0].borderWidth > 0);
        compare(rings(), []);
        for (const [key, title] of [[Qt.Key_Down, "Half step down"], [Qt.Key_End, "12-string standard"]]) {
            keyClick(key);
            compare(titles(list, each => each.activeFocus), [title]);
            compare(rings(), [title]);
        }
        list.highlightAt(entryOf(list, "Drop D").mapToItem(null, 20, 10));
        compare(titles(list, each => each.activeFocus), ["Drop D"]);
        compare(rings(), []);
    }

    function test_exposes_roles_and_the_chosen_entry_to_screen_readers() {
        const list = opened();
        const help = opened(300, tuner.helpMenu);
        const states = item => [item.Accessible.role, item.Accessible.checkable, item.Accessible.checked];
        compare(list.Accessible.role, Accessible.PopupMenu);
        compare(textItem(list, "6-string").Accessible.role, Accessible.Heading);
        compare(states(entryOf(list, "Standard")), [Accessible.MenuItem, true, true]);
        compare(states(entryOf(list, "Drop D")), [Accessible.MenuItem, true, false]);
        compare(states(entryOf(help, "Privacy Policy")), [Accessible.MenuItem, false, false]);
        compare(entryOf(help, "Privacy Policy").Accessible.name, "Privacy Policy");
    }
}
