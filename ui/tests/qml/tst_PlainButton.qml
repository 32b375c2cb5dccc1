import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "PlainButton"

    Component {
        id: subject

        PlainButton {
            width: 40
            height: 20

            Accessible.role: Accessible.Button
            Accessible.name: "Plain"
        }
    }

    SignalSpy {
        id: clicked

        signalName: "clicked"
    }

    function watched(properties) {
        const button = make(subject, properties);
        clicked.clear();
        clicked.target = button;
        return button;
    }

    function test_a_screen_reader_presses_it_unless_it_is_disabled() {
        const button = watched();
        button.Accessible.pressAction();
        compare(clicked.count, 1);
        button.enabled = false;
        button.Accessible.pressAction();
        compare(clicked.count, 1);
    }

    function test_is_lighter_under_the_mouse_and_more_so_pressed() {
        const button = watched();
        compare(button.light.a, 0);
        mouseMove(button, 10, 10);
        tryVerify(() => button.light.a > 0);
        const hovered = button.light.a;
        mousePress(button);
        verify(button.light.a > hovered);
        mouseRelease(button);
    }
}
