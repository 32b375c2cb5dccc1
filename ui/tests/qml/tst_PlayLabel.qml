import QtQuick
import Corvane

ScreenTest {
    name: "PlayLabel"

    Component {
        id: subject

        PlayLabel {
            text: "Play reference"
        }
    }

    function test_is_a_loudspeaker_before_the_text() {
        const label = make(subject);
        const speaker = all(label, Symbol)[0];
        const text = textItem(label, "Play reference");
        compare(speaker.kind, Symbol.SpeakerWave);
        verify(speaker.x + speaker.width < text.x);
    }

    function test_is_black_and_semibold() {
        const label = make(subject);
        compareColor(all(label, Symbol)[0].color, "black");
        const text = textItem(label, "Play reference");
        compareColor(text.color, "black");
        compare(text.font.weight, Font.DemiBold);
        compare(text.font.pixelSize, TypeScale.body);
    }
}
