import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "Pressable"

    Component {
        id: subject

        Pressable {
            x: 100
            y: 100
            width: 40
            height: 20
        }
    }

    SignalSpy {
        id: clicked

        signalName: "clicked"
    }

    function watched(properties) {
        const area = make(subject, properties);
        clicked.clear();
        clicked.target = area;
        return area;
    }

    function test_the_left_button_of_the_mouse_clicks_and_no_other() {
        const area = watched();
        mouseClick(area);
        compare(clicked.count, 1);
        mouseClick(area, 5, 5, Qt.RightButton);
        compare(clicked.count, 1);
    }

    function test_a_click_comes_when_it_is_let_go() {
        const area = watched();
        mousePress(area);
        verify(area.down);
        compare(clicked.count, 0);
        mouseRelease(area);
        verify(!area.down);
        compare(clicked.count, 1);
    }

    function test_a_press_that_is_dragged_off_does_not_click() {
        const area = watched();
        mousePress(area);
        mouseMove(area, 60, 10);
        verify(!area.down);
        mouseRelease(area, 60, 10);
        compare(clicked.count, 0);
    }

    function test_a_press_that_comes_back_clicks() {
        const area = watched();
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

    function test_keys_click_data() {
        return [
            {
                tag: "Space",
                key: Qt.Key_Space
            },
            {
                tag: "Return",
                key: Qt.Key_Return
            },
            {
                tag: "Enter",
                key: Qt.Key_Enter
            }
        ];
    }

    function test_keys_click(row) {
        const area = watched();
        area.forceActiveFocus();
        keyPress(row.key);
        verify(area.down);
        compare(clicked.count, 0);
        keyRelease(row.key);
        compare(clicked.count, 1);
        verify(!area.down);
    }

    function test_other_keys_do_not_click() {
        const area = watched();
        area.forceActiveFocus();
        keyClick(Qt.Key_A);
        keyClick(Qt.Key_Escape);
        compare(clicked.count, 0);
    }

    function test_a_key_that_went_down_elsewhere_does_not_click() {
        const area = watched();
        area.forceActiveFocus();
        keyRelease(Qt.Key_Return);
        compare(clicked.count, 0);
    }

    function test_a_key_that_is_let_go_elsewhere_does_not_click() {
        const area = watched();
        const other = make(subject);
        area.forceActiveFocus();
        keyPress(Qt.Key_Space);
        other.forceActiveFocus();
        verify(!area.down);
        keyRelease(Qt.Key_Space);
        compare(clicked.count, 0);
    }

    function test_clicks_over_and_over_while_it_is_held_if_it_is_told_to() {
        const area = watched({
                autoRepeat: true
            });
        mousePress(area);
        tryCompare(clicked, "count", 2);
        mouseRelease(area);
        compare(clicked.count, 2);
        mouseClick(area);
        compare(clicked.count, 3);
    }

    function test_pauses_while_it_is_dragged_off() {
        const area = watched({
                autoRepeat: true
            });
        mousePress(area);
        tryCompare(clicked, "count", 1);
        mouseMove(area, 60, 10);
        wait(350); // three times the pause between two clicks
        compare(clicked.count, 1);
        mouseRelease(area, 60, 10);
        mouseClick(area);
        compare(clicked.count, 2);
    }

    function test_stops_when_it_is_disabled_while_it_is_held() {
        const area = watched({
                autoRepeat: true
            });
        mousePress(area);
        tryCompare(clicked, "count", 1);
        area.enabled = false;
        verify(!area.down);
        wait(350); // three times the pause between two clicks
        compare(clicked.count, 1);
        mouseRelease(area);
        area.enabled = true;
        mouseClick(area);
        compare(clicked.count, 2);
    }

    function test_nothing_presses_it_while_it_is_disabled() {
        const area = watched({
                enabled: false
            });
        mouseClick(area);
        area.press();
        compare(clicked.count, 0);
    }

    function test_knows_whether_the_mouse_is_over_it() {
        const area = watched();
        verify(!area.hovered);
        mouseMove(area, 10, 10);
        tryVerify(() => area.hovered);
        mouseMove(area, 60, 10);
        tryVerify(() => !area.hovered);
    }

    function test_shows_the_keyboard_where_the_keyboard_went() {
        const area = watched();
        verify(!area.visualFocus);
        area.forceActiveFocus(Qt.TabFocusReason);
        verify(area.visualFocus);
        make(subject).forceActiveFocus(Qt.TabFocusReason);
        verify(!area.visualFocus);
    }

    function test_a_press_takes_the_keyboard_without_showing_it() {
        const area = watched();
        mouseClick(area);
        verify(area.activeFocus);
        verify(!area.visualFocus);
        area.focus = false;
        area.forceActiveFocus(Qt.TabFocusReason);
        mouseClick(area);
        verify(!area.visualFocus);
    }

    function test_leaves_the_keyboard_where_it_is_if_it_is_told_to() {
        const area = watched({
                activeFocusOnTab: false
            });
        mouseClick(area);
        verify(!area.activeFocus);
        compare(clicked.count, 1);
    }

    function test_the_tab_key_comes_here() {
        const area = watched();
        const other = make(subject);
        area.forceActiveFocus();
        keyClick(Qt.Key_Tab);
        verify(other.activeFocus);
        verify(other.visualFocus);
    }
}
