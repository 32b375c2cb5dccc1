import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "FrequencyLine"

    Component {
        id: subject

        FrequencyLine {
            width: 400
            tuner: test.tuner
        }
    }

    function test_shows_a_dash_and_no_note_while_nothing_is_heard() {
        compare(texts(make(subject)), ["— Hz"]);
    }

    function test_shows_the_frequency_with_one_decimal_and_the_heard_note() {
        const line = make(subject);
        tuner.hear(440.04);
        compare(texts(line), ["440.0 Hz", "Hearing A4"]);
    }

    function test_the_note_goes_when_it_is_heard_no_more() {
        const line = make(subject);
        tuner.hear(440);
        tuner.hearNothing();
        compare(texts(line), ["— Hz"]);
    }

    function test_has_no_heard_note_on_the_piano() {
        const line = make(subject);
        tuner.instrument = 2;
        tuner.hear(440);
        compare(texts(line), ["440.0 Hz"]);
    }

    function test_the_frequency_stands_at_the_start_and_the_note_at_the_end() {
        const line = make(subject);
        tuner.hear(440);
        compare(textItem(line, "440.0 Hz").x, 0);
        const note = textItem(line, "Hearing A4");
        compare(note.x + note.width, 400);
    }

    function test_its_types() {
        const line = make(subject);
        tuner.hear(440);
        const frequency = textItem(line, "440.0 Hz");
        verify(frequency instanceof FixedDigits);
        compare(frequency.font.pixelSize, TypeScale.title3);
        compare(frequency.font.weight, Font.Medium);
        compareColor(frequency.color, "white");
        const note = textItem(line, "Hearing A4");
        compare(note.font.pixelSize, TypeScale.subheadline);
        compareColor(note.color, TunerTheme.muted);
    }

    function test_a_screen_reader_can_read_both() {
        const line = make(subject);
        tuner.hear(440);
        for (const item of textItems(line)) {
            compare(item.Accessible.role, Accessible.StaticText);
            compare(item.Accessible.name, item.text);
        }
        compare(textItem(line, "440.0 Hz").Accessible.description, "Frequency");
        compare(textItem(line, "Hearing A4").Accessible.description, "Heard note");
    }
}
