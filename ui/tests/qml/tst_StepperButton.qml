import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "StepperButton"

    Component {
        id: subject

        StepperButton {
            width: 32
            height: 28
            kind: Symbol.Plus
            name: "Raise"
        }
    }

    SignalSpy {
        id: clicks

        signalName: "clicked"
    }

    function test_shows_its_symbol_and_fades_it_while_it_does_nothing() {
        const button = make(subject);
        const symbol = all(button, Symbol)[0];
        compare(symbol.kind, Symbol.Plus);
        compareColor(symbol.color, white(1));
        button.enabled = false;
        verify(symbol.color.a < 1);
    }

    function test_goes_on_stepping_while_it_is_held() {
        const button = make(subject);
        clicks.clear();
        clicks.target = button;
        mousePress(button);
        tryVerify(() => clicks.count >= 2);
        mouseRelease(button);
    }

    function test_tells_a_screen_reader_what_it_does() {
        const button = make(subject);
        compare(button.Accessible.role, Accessible.Button);
        compare(button.Accessible.name, "Raise");
    }
}
