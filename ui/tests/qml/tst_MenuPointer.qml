// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "MenuPointer"

    function opened() {
        const list = makePart("controls/MenuList", {
                parent: Window.contentItem,
                z: 1, // as a menu has
                entries: tuner.tunings,
                width: 300,
                height: 200
            });
        list.showCurrent("");
        list.forceActiveFocus();
        paint(list);
        return list;
    }

    // Moves the pointer from one place to the next.
    function moveOver(list, y) {
        mouseMove(list, 100, y);
        mouseMove(list, 101, y);
        paint(list);
    }

    function test_a_pointer_that_moves_highlights_the_entry_below_it_and_a_press_shows_on_it() {
        const list = opened();
        const entry = entryOf(list, "Drop D");
        const resting = colorOf(entry);
        moveOver(list, entry.mapToItem(list, 0, 10).y);
        verify(entry.highlighted);
        const highlighted = colorOf(entry);
        mousePress(entry, 21, 10);
        verify(highlighted !== resting && colorOf(entry) !== resting && colorOf(entry) !== highlighted);
        mouseRelease(entry, 21, 10);
    }

    function test_a_pointer_on_a_heading_leaves_the_highlight_alone() {
        const list = opened();
        keyClick(Qt.Key_Down);
        moveOver(list, 25);
        compare(list.currentIndex, 1);
        moveOver(list, 27);
        compare(list.currentIndex, 0);
    }

    function test_a_resting_pointer_does_not_highlight_an_opening_list() {
        mouseMove(test, 100, 100);
        const list = opened();
        mouseMove(test, 100, 100);
        paint(list);
        compare(list.currentIndex, 0);
    }

    function test_a_resting_pointer_does_not_disturb_the_arrow_keys() {
        const list = opened();
        moveOver(list, 100);
        const start = list.currentIndex;
        verify(start > 0);
        for (let i = 1; i <= 10; ++i) {
            keyClick(Qt.Key_Down);
            paint(list);
            compare(list.currentIndex, start + i);
        }
    }

    function test_an_entering_pointer_leaves_the_highlight_alone() {
        const list = opened();
        moveOver(list, 100);
        mouseMove(test, 400, 500);
        paint(list);
        keyClick(Qt.Key_Home);
        mouseMove(list, 100, 150);
        paint(list);
        compare(list.currentIndex, 0);
    }

    function test_scrolls_with_the_wheel() {
        const list = opened();
        const before = list.contentHeight;
        mouseWheel(list, 100, 100, 0, -600);
        eventually(() => list.contentY > 100 && !list.moving);
        compare(list.contentHeight, before);
    }
}
