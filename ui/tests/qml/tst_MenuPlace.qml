// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// In the smallest window, where the longest list does not fit.
ScreenTest {
    id: test

    name: "MenuPlace"
    width: 420
    height: 680

    Component {
        id: subject

        MenuButton {
            tuner: test.tuner
        }
    }

    function openedList(properties) {
        tryCompare(test.Window, "height", 680, limit);
        const button = make(subject, properties);
        button.menu.open();
        return listOf(button.menu);
    }

    function test_opens_below_its_control_with_its_width_or_a_given_one_data() {
        return table(["name", "scale", "listWidth", "alignment", "place"], [
                ["at its size", 1, 0, Qt.AlignLeft, [100, 200]],
                ["shrunken", 0.5, 0, Qt.AlignLeft, [150, 100]],
                ["narrower, from the left", 1, 150, Qt.AlignLeft, [100, 150]],
                ["narrower, from the right", 1, 150, Qt.AlignRight, [150, 150]]
            ]);
    }

    function test_opens_below_its_control_with_its_width_or_a_given_one(row) {
        tuner.instrument = 2; // One entry fits anywhere.
        const ground = openedList({
                scale: row.scale,
                listWidth: row.listWidth,
                alignment: row.alignment
            }).parent;
        compare([ground.x, ground.width], row.place);
        compare(ground.y, 80 + 20 * row.scale + 4);
    }

    function test_stays_inside_the_window_and_clear_of_its_edges_data() {
        return table(["edge", "x", "y"], [
                ["right", 400, 60],
                ["left", -150, 60],
                ["bottom", 100, 640],
                ["top", 100, -500]
            ]);
    }

    function test_stays_inside_the_window_and_clear_of_its_edges(row) {
        const ground = openedList({
                x: row.x,
                y: row.y
            }).parent;
        verify(ground.x >= 8 && ground.x + ground.width <= 420 - 8, `${ground.x}`);
        verify(ground.y >= 8 && ground.y + ground.height <= 680 - 8, `${ground.y}`);
    }

    function test_leaves_its_control_in_sight_data() {
        return table(["y"], [[60], [300], [600]]);
    }

    function test_leaves_its_control_in_sight(row) {
        const ground = openedList({
                y: row.y
            }).parent;
        verify(ground.y >= row.y + 40 || ground.y + ground.height <= row.y, `${ground.y}`);
        compare(all(ground, Capsule)[0].visible, true); // There is more to scroll to.
    }

    function test_is_as_high_as_its_entries_and_scrolls_where_the_window_is_lower_data() {
        return table(["name", "instrument", "scrolls"], [["guitar", 0, true], ["bass", 1, false]]);
    }

    function test_is_as_high_as_its_entries_and_scrolls_where_the_window_is_lower(row) {
        tuner.instrument = row.instrument;
        const list = openedList();
        compare(list.height < list.contentHeight, row.scrolls);
        compare(list.height === list.contentHeight, !row.scrolls);
    }

    function test_closes_when_the_window_changes_its_size_data() {
        return table(["property"], [["width"], ["height"]]);
    }

    function test_closes_when_the_window_changes_its_size(row) {
        const window = test.Window.window;
        const button = make(subject);
        button.menu.open();
        window[row.property] += 1;
        tryCompare(button.menu, "opened", false, limit);
        window[row.property] -= 1;
    }
}
