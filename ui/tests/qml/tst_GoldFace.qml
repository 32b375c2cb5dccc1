import QtQuick
import Corvane

ScreenTest {
    name: "GoldFace"

    Component {
        id: subject

        PlainButton {
            id: button

            width: 200
            height: 40

            GoldFace {
                control: button
            }
        }
    }

    function test_is_gold() {
        const face = groundOf(make(subject));
        compareColor(face.color, TunerTheme.gold);
        compare(face.radius, 12);
        compare(face.borderWidth, 0);
    }

    function test_darkens_while_it_is_pressed() {
        const button = make(subject);
        mousePress(button);
        verify(groundOf(button).color.hslLightness < TunerTheme.gold.hslLightness);
        mouseRelease(button);
    }

    function test_shows_where_the_keyboard_is() {
        const button = make(subject);
        const ring = all(button, FocusRing)[0];
        verify(!ring.visible);
        button.forceActiveFocus(Qt.TabFocusReason);
        verify(ring.visible);
    }
}
