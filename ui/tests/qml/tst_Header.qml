import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Header"

    Component {
        id: subject

        Header {
            width: 384
            tuner: test.tuner
        }
    }

    function test_holds_the_title_over_the_detail_of_the_tuning() {
        const header = make(subject);
        compare(texts(header), ["Corvane", "E A D G B E"]);
        compare(header.spacing, 2);
        tuner.chooseTuning("g6-dropd");
        compare(texts(header), ["Corvane", "D A D G B E"]);
    }

    function test_the_piano_has_a_subtitle_of_its_own() {
        const header = make(subject);
        tuner.instrument = 2;
        compare(texts(header), ["Corvane", "Piano chromatic"]);
    }

    function test_its_types() {
        const header = make(subject);
        const title = textItem(header, "Corvane");
        compare(title.font.pixelSize, TypeScale.title2);
        compare(title.font.weight, Font.Bold);
        compareColor(title.color, "white");
        compare(title.Accessible.role, Accessible.Heading);
        const subtitle = textItem(header, "E A D G B E");
        compare(subtitle.font.pixelSize, TypeScale.caption);
        compareColor(subtitle.color, TunerTheme.muted);
    }

    function test_both_start_at_the_leading_edge() {
        for (const label of textItems(make(subject)))
            compare(label.x, 0);
    }

    function test_the_subtitle_wraps_to_at_most_two_lines() {
        tuner.chooseTuning("g12-standard");
        const narrow = make(subject, {
                width: 110
            });
        const subtitle = textItem(narrow, "Octave courses follow E A D G B E");
        compare(subtitle.lineCount, 2);
        narrow.width = 50;
        tryCompare(subtitle, "lineCount", 2);
        verify(subtitle.truncated);
    }
}
