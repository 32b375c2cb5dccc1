import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "MenuView"

    Component {
        id: subject

        MenuView {
            entries: test.tuner.tunings
        }
    }

    SignalSpy {
        id: picked

        signalName: "picked"
    }

    function test_picking_a_row_tells_its_value() {
        const view = make(subject);
        picked.clear();
        picked.target = view;
        view.pick(3);
        compare(picked.count, 1);
        compare(picked.signalArguments[0][0], "g6-dropd");
    }

    function test_there_is_nothing_to_pick_before_the_first_row() {
        const view = make(subject);
        picked.clear();
        picked.target = view;
        view.pick(-1);
        compare(picked.count, 0);
    }
}
