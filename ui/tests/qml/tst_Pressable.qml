// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "Pressable"

    property SignalSpy clicked

    Component {
        id: subject

        Pressable {
            x: 100
            y: 100
            width: 40
            height: 20
        }
    }

    Component {
        id: scrolling

        Flickable {
            width: 200
            height: 100
            contentHeight: 300

            Pressable {
                width: 200
                height: 300
                autoRepeat: true
            }
        }
    }

    function watched(properties) {
        const area = make(subject, properties);
        clicked = spy(area, "clicked");
        return area;
    }

    function repeating() {
        return watched({
                autoRepeat: true
            });
    }

    function test_only_the_left_button_clicks_on_release() {
        const area = watched();
        mousePress(area);
        verify(area.down);
        compare(clicked.count, 0);
        mouseRelease(area);
        verify(!area.down);
        mouseClick(area, 5, 5, Qt.RightButton);
        compare(clicked.count, 1);
    }

    function test_a_press_that_is_dragged_off_clicks_only_if_it_comes_back() {
        const area = watched();
        mousePress(area);
        mouseMove(area, 60, 10);
        verify(!area.down);
        mouseRelease(area, 60, 10);
        compare(clicked.count, 0);
        mousePress(area);
        mouseMove(area, 60, 10);
        mouseMove(area, 10, 10);
        verify(area.down);
        mouseRelease(area, 10, 10);
        compare(clicked.count, 1);
    }

    function test_a_finger_clicks_unless_it_slides_off() {
        const area = watched();
        const touch = touchEvent(area);
        touch.press(0, area, 10, 10).commit();
        verify(area.down);
        touch.release(0, area, 10, 10).commit();
        compare(clicked.count, 1);
        touch.press(0, area, 10, 10).commit();
        touch.move(0, area, 90, 10).commit();
        touch.release(0, area, 90, 10).commit();
        compare(clicked.count, 1);
        verify(!area.down);
    }

    function test_a_press_taken_over_for_scrolling_does_not_click() {
        const list = make(scrolling);
        const area = only(list.contentItem, Pressable);
        clicked = spy(area, "clicked");
        mousePress(area, 10, 90);
        verify(area.down);
        for (let y = 80; y >= 30; y -= 10)
            mouseMove(list, 10, y);
        verify(list.moving, "the press was taken");
        verify(!area.down);
        compare(probe.intervalOf(area), -1);
        mouseRelease(list, 10, 30);
        compare(clicked.count, 0);
    }

    function test_keys_click_on_release_data() {
        return table(["name"], [["Return"], ["Enter"], ["Space"]]);
    }

    function test_keys_click_on_release(row) {
        const area = watched();
        const key = Qt[`Key_${row.name}`];
        area.forceActiveFocus();
        keyPress(key);
        probe.repeatKey(area.Window.window, key);
        verify(area.down);
        compare(clicked.count, 0);
        keyRelease(key);
        verify(!area.down);
        compare(clicked.count, 1);
    }

    function test_other_keys_and_keys_pressed_or_released_elsewhere_do_not_click() {
        const area = watched();
        const other = make(subject);
        area.forceActiveFocus();
        keyClick(Qt.Key_A);
        keyRelease(Qt.Key_Return);
        keyPress(Qt.Key_Space);
        other.forceActiveFocus();
        verify(!area.down);
        keyRelease(Qt.Key_Space);
        compare(clicked.count, 0);
    }

    function test_repeats_while_held_if_enabled() {
        const area = repeating();
        mousePress(area);
        const beforeTheFirst = probe.intervalOf(area);
        for (let clicks = 1; clicks <= 3; ++clicks) {
            probe.fireTimerOf(area);
            compare(clicked.count, clicks);
        }
        verify(probe.intervalOf(area) < beforeTheFirst);
        mouseRelease(area);
        compare(clicked.count, 3);
        compare(probe.intervalOf(area), -1);
        mouseClick(area);
        compare(clicked.count, 4);
    }

    function test_its_timer_runs_only_if_repeat_is_enabled() {
        mousePress(repeating());
        eventually(() => clicked.count >= 2);
        const area = watched();
        mousePress(area);
        compare(probe.intervalOf(area), -1);
        mouseRelease(area);
    }

    function test_repeat_pauses_while_dragged_off() {
        const area = repeating();
        mousePress(area);
        mouseMove(area, 60, 10);
        probe.fireTimerOf(area);
        compare(clicked.count, 0);
        mouseMove(area, 10, 10);
        probe.fireTimerOf(area);
        compare(clicked.count, 1);
        mouseRelease(area);
    }

    function test_repeat_stops_when_disabled_or_hidden_data() {
        return table(["property"], [["enabled"], ["visible"]]);
    }

    function test_repeat_stops_when_disabled_or_hidden(row) {
        const area = repeating();
        mouseMove(area, 10, 10);
        eventually(() => area.hovered);
        mousePress(area);
        probe.fireTimerOf(area);
        area[row.property] = false;
        verify(!area.down && !area.hovered);
        compare(probe.intervalOf(area), -1);
        mouseRelease(area);
        area[row.property] = true;
        mouseClick(area);
        compare(clicked.count, 2);
    }
}
