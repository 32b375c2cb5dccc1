import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Chip"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner
            itemWidth: 36

            Chip {
                selected: false
                fill: "teal"
            }
        }
    }

    function chip() {
        return make(subject).children[0];
    }

    function test_is_a_square() {
        const square = chip();
        compare(square.width, 36);
        compare(square.height, 36);
    }

    function test_is_filled_as_it_is_told() {
        const square = chip();
        compareColor(square.background.color, "teal");
        compare(square.background.radius, 12);
    }

    function test_shows_in_its_outline_that_it_is_selected() {
        const square = chip();
        compare(square.background.borderWidth, 1);
        compareColor(square.background.borderColor, white(0.08));
        square.selected = true;
        compare(square.background.borderWidth, 2);
        compareColor(square.background.borderColor, TunerTheme.gold);
        compareColor(square.background.color, "teal");
    }

    function test_shows_where_the_keyboard_is() {
        const square = chip();
        const ring = all(square, FocusRing)[0];
        verify(!ring.visible);
        square.forceActiveFocus(Qt.TabFocusReason);
        verify(ring.visible);
    }
}
