import QtQuick
import Corvane

ScreenTest {
    name: "FocusRing"

    Component {
        id: subject

        Item {
            id: control

            width: 100
            height: 40

            FocusRing {
                control: parent
            }
        }
    }

    function test_lies_around_its_control() {
        const ring = make(subject).children[0];
        compare(ring.borderWidth, 2);
        const outside = ring.distance + ring.borderWidth;
        compare(ring.x, -outside);
        compare(ring.y, -outside);
        compare(ring.width, 100 + 2 * outside);
        compare(ring.height, 40 + 2 * outside);
    }

    function test_is_a_line_only() {
        const ring = make(subject).children[0];
        compare(ring.color.a, 0);
        compare(ring.borderColor.a, 1);
    }
}
