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

    function test_has_no_look_of_its_own() {
        compare(watched().background, null);
        compare(watched().contentItem, null);
    }

    function test_a_click_and_a_screen_reader_press_it() {
        const button = watched();
        mouseClick(button);
        compare(clicked.count, 1);
        button.Accessible.pressAction();
        compare(clicked.count, 2);
    }

    function test_nothing_presses_it_while_it_is_disabled() {
        const button = watched({
                enabled: false
            });
        mouseClick(button);
        button.Accessible.pressAction();
        compare(clicked.count, 0);
    }
}
