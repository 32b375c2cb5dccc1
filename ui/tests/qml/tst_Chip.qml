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
        compareColor(groundOf(square).color, "teal");
        compare(groundOf(square).radius, 12);
    }

    function test_shows_in_its_outline_that_it_is_selected() {
        const square = chip();
        compare(groundOf(square).borderWidth, 1);
        compareColor(groundOf(square).borderColor, white(0.08));
        square.selected = true;
        compare(groundOf(square).borderWidth, 2);
        compareColor(groundOf(square).borderColor, TunerTheme.gold);
        compareColor(groundOf(square).color, "teal");
    }

    function test_shows_where_the_keyboard_is() {
        const square = chip();
        const ring = all(square, FocusRing)[0];
        verify(!ring.visible);
        square.forceActiveFocus(Qt.TabFocusReason);
        verify(ring.visible);
    }
}
