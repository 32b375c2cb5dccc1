import QtQuick
import Corvane

ScreenTest {
    name: "Capsule"

    Component {
        id: subject

        Capsule {}
    }

    function test_its_shorter_sides_are_half_circles() {
        compare(make(subject, {
                    width: 100,
                    height: 16
                }).radius, 8);
        compare(make(subject, {
                    width: 6,
                    height: 16
                }).radius, 3);
    }
}
