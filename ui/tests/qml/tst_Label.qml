import QtQuick
import Corvane

ScreenTest {
    name: "Label"

    Component {
        id: subject

        Label {
            text: "<b>5</b> cents"
        }
    }

    function test_shows_its_text_as_it_stands() {
        const label = make(subject);
        compare(label.textFormat, Text.PlainText);
        compareColor(label.color, "white");
        compare(label.font.pixelSize, TypeScale.body);
    }

    function test_a_screen_reader_reads_what_is_shown() {
        const label = make(subject);
        compare(label.Accessible.role, Accessible.StaticText);
        compare(label.Accessible.name, label.text);
    }
}
