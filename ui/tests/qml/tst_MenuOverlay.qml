import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "MenuOverlay"

    Component {
        id: subject

        Item {
            id: around

            property alias overlay: overlay
            property alias control: control
            property real listWidth: 0
            property int alignment: Qt.AlignLeft

            anchors.fill: parent

            PlainButton {
                id: control

                x: 100
                y: 60
                width: 200
                height: 40
            }

            MenuOverlay {
                id: overlay

                control: control
                entries: test.tuner.concertPitches
                listWidth: around.listWidth
                alignment: around.alignment
            }
        }
    }

    SignalSpy {
        id: dismissed

        signalName: "dismissed"
    }

    SignalSpy {
        id: picked

        signalName: "picked"
    }

    SignalSpy {
        id: beneath

        signalName: "clicked"
    }

    function watched(properties) {
        const made = make(subject, properties);
        for (const spy of [dismissed, picked, beneath])
            spy.clear();
        dismissed.target = made.overlay;
        picked.target = made.overlay;
        beneath.target = made.control;
        return made.overlay;
    }

    function ground(overlay) {
        return overlay.list.parent;
    }

    function test_stands_below_its_control_as_wide_as_it() {
        const overlay = watched();
        compare(ground(overlay).x, 100);
        compare(ground(overlay).y, 104);
        compare(ground(overlay).width, 200);
    }

    function test_is_as_wide_as_it_is_told_from_either_edge_of_the_control() {
        compare(ground(watched({
                        listWidth: 150
                    })).x, 100);
        compare(ground(watched({
                        listWidth: 150,
                        alignment: Qt.AlignRight
                    })).x, 150);
    }

    function test_stays_inside_the_window_data() {
        return [
            {
                tag: "at the right",
                x: 400,
                y: 60
            },
            {
                tag: "at the left",
                x: -150,
                y: 60
            },
            {
                tag: "at the bottom",
                x: 100,
                y: 800
            }
        ];
    }

    function test_stays_inside_the_window(row) {
        const made = make(subject);
        made.control.x = row.x;
        made.control.y = row.y;
        const moved = createTemporaryObject(remaker, made, {
                control: made.control
            });
        const list = ground(moved);
        verify(list.x >= 8 && list.x + list.width <= moved.width - 8, `${list.x}`);
        verify(list.y >= 8 && list.y + list.height <= moved.height - 8, `${list.y}`);
    }

    Component {
        id: remaker

        MenuOverlay {
            entries: test.tuner.concertPitches
            listWidth: 0
            alignment: Qt.AlignLeft
        }
    }

    function test_is_as_wide_as_a_control_that_is_shrunken_looks() {
        const made = make(subject);
        made.control.scale = 0.5;
        const overlay = createTemporaryObject(remaker, made, {
                control: made.control
            });
        compare(ground(overlay).width, 100);
        compare(ground(overlay).x, 150);
        compare(ground(overlay).y, 94);
    }

    function test_has_the_keyboard() {
        verify(watched().list.activeFocus);
    }

    function test_keeps_the_keyboard_from_what_lies_beneath() {
        const overlay = watched();
        keyClick(Qt.Key_Tab);
        verify(overlay.list.activeFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(overlay.list.activeFocus);
    }

    function test_escape_leaves_by_the_keyboard() {
        watched();
        keyClick(Qt.Key_Escape);
        compare(dismissed.signalArguments.map(each => each[0]), [Qt.TabFocusReason]);
    }

    function test_a_press_beside_the_list_leaves_and_reaches_nothing_beneath_data() {
        return [Qt.LeftButton, Qt.RightButton].map(button => ({
                    tag: `button ${button}`,
                    button: button
                }));
    }

    function test_a_press_beside_the_list_leaves_and_reaches_nothing_beneath(row) {
        const overlay = watched();
        mouseClick(overlay.control, 10, 10, row.button);
        compare(dismissed.signalArguments.map(each => each[0]), [Qt.MouseFocusReason]);
        compare(beneath.count, 0);
        compare(picked.count, 0);
    }

    function test_a_finger_beside_the_list_reaches_nothing_beneath() {
        const overlay = watched();
        const touch = touchEvent(overlay.control);
        touch.press(0, overlay.control, 10, 10).commit();
        touch.release(0, overlay.control, 10, 10).commit();
        compare(dismissed.count, 1);
        compare(beneath.count, 0);
    }

    function test_what_lies_beneath_does_not_see_the_mouse() {
        const overlay = watched();
        mouseMove(overlay.control, 10, 10);
        mouseMove(overlay.control, 12, 10);
        wait(50); // for the frame in which the toolkit looks where the mouse is
        verify(!overlay.control.hovered);
    }

    function test_a_press_on_the_edge_of_the_list_does_nothing() {
        const overlay = watched();
        mouseClick(ground(overlay), 3, 3);
        compare(dismissed.count, 0);
        compare(picked.count, 0);
    }

    function test_leaves_when_the_window_changes_its_size() {
        watched();
        test.Window.window.width += 1;
        tryVerify(() => dismissed.count > 0);
        test.Window.window.width -= 1;
    }

    function test_tells_a_choice_by_a_press_from_one_by_the_keyboard() {
        const overlay = watched();
        mouseClick(entryOf(overlay.list, "415  Baroque"));
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(picked.signalArguments.map(each => each[1]), [Qt.MouseFocusReason, Qt.TabFocusReason]);
        compare(picked.signalArguments[0][0], "415");
    }
}
