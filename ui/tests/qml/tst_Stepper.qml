import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "Stepper"

    Component {
        id: subject

        Stepper {
            height: 28
            minimumValue: 377
            maximumValue: 560
            value: test.tuner.a4
            onStepped: value => test.tuner.a4 = value
        }
    }

    Component {
        id: alone

        Stepper {
            height: 28
            minimumValue: 377
            maximumValue: 560
            value: 440
        }
    }

    SignalSpy {
        id: steps

        signalName: "stepped"
    }

    function test_steps_by_one() {
        const stepper = make(subject);
        mouseClick(buttonOf(stepper, "Raise"));
        compare(tuner.a4, 441);
        mouseClick(buttonOf(stepper, "Lower"));
        mouseClick(buttonOf(stepper, "Lower"));
        compare(tuner.a4, 439);
    }

    function test_lower_stands_before_raise() {
        const stepper = make(subject);
        verify(buttonOf(stepper, "Lower").x < buttonOf(stepper, "Raise").x);
        compare(texts(stepper), []);
    }

    function test_cannot_go_below_377() {
        tuner.a4 = 378;
        const stepper = make(subject);
        const lower = buttonOf(stepper, "Lower");
        mouseClick(lower);
        compare(tuner.a4, 377);
        verify(!lower.enabled);
        mouseClick(lower);
        stepper.step(-1);
        compare(tuner.a4, 377);
        verify(buttonOf(stepper, "Raise").enabled);
    }

    function test_cannot_go_above_560() {
        tuner.a4 = 559;
        const stepper = make(subject);
        const raise = buttonOf(stepper, "Raise");
        mouseClick(raise);
        compare(tuner.a4, 560);
        verify(!raise.enabled);
        mouseClick(raise);
        stepper.step(1);
        compare(tuner.a4, 560);
        verify(buttonOf(stepper, "Lower").enabled);
    }

    // The tuner keeps to the range too; this one has no tuner to hide behind.
    function test_a_step_that_would_pass_the_end_stops_there() {
        const stepper = make(alone);
        steps.clear();
        steps.target = stepper;
        stepper.value = 559.5;
        stepper.step(1);
        stepper.value = 377.5;
        stepper.step(-1);
        compare(steps.signalArguments.map(each => each[0]), [560, 377]);
    }

    function test_says_nothing_at_its_ends() {
        const stepper = make(alone);
        steps.clear();
        steps.target = stepper;
        stepper.value = 560;
        stepper.step(1);
        stepper.value = 377;
        stepper.step(-1);
        compare(steps.count, 0);
    }

    function test_the_arrow_keys_step() {
        const stepper = make(subject);
        stepper.forceActiveFocus();
        keyClick(Qt.Key_Up);
        compare(tuner.a4, 441);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        compare(tuner.a4, 439);
    }

    function test_the_page_keys_step_by_ten_as_far_as_the_ends() {
        const stepper = make(subject);
        stepper.forceActiveFocus();
        keyClick(Qt.Key_PageUp);
        compare(tuner.a4, 450);
        keyClick(Qt.Key_PageDown);
        keyClick(Qt.Key_PageDown);
        compare(tuner.a4, 430);
        tuner.a4 = 555;
        keyClick(Qt.Key_PageUp);
        compare(tuner.a4, 560);
        tuner.a4 = 380;
        keyClick(Qt.Key_PageDown);
        compare(tuner.a4, 377);
    }

    function test_shows_where_the_keyboard_is() {
        const stepper = make(subject);
        const ring = all(stepper, FocusRing).filter(each => each.control === stepper)[0];
        verify(!ring.visible);
        stepper.forceActiveFocus();
        verify(ring.visible);
    }

    function test_a_screen_reader_can_step_it() {
        const stepper = make(subject);
        compare(stepper.Accessible.role, Accessible.SpinBox);
        compare(stepper.Accessible.name, "Concert pitch in hertz");
        stepper.Accessible.increaseAction();
        compare(tuner.a4, 441);
        stepper.Accessible.decreaseAction();
        compare(tuner.a4, 440);
    }
}
