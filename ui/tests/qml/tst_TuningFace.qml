import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "TuningFace"

    Component {
        id: subject

        TuningFace {
            width: 340
            tuner: test.tuner
        }
    }

    function test_is_the_name_over_the_detail() {
        const face = make(subject);
        compare(texts(face), ["Standard", "E A D G B E"]);
        const name = textItem(face, "Standard");
        const detail = textItem(face, "E A D G B E");
        compare(name.x, 0);
        compare(detail.y - name.y - name.height, 2);
        compare(name.font.pixelSize, TypeScale.body);
        compare(name.font.weight, Font.DemiBold);
        compare(detail.font.pixelSize, TypeScale.caption);
        compareColor(detail.color, TunerTheme.muted);
    }

    function test_follows_the_tuning() {
        const face = make(subject);
        tuner.instrument = 2;
        compare(texts(face), ["Chromatic", "A0 to C8. Set A4 to this piano. Older pianos were not all tuned to 440."]);
    }

    function test_shows_at_its_end_that_a_list_opens_here() {
        const chevron = all(make(subject), Symbol)[0];
        compare(chevron.kind, Symbol.ChevronUpDown);
        compareColor(chevron.color, TunerTheme.muted);
        compare(chevron.x + chevron.width, 340);
    }

    function test_a_long_detail_is_whole_and_ends_before_the_sign() {
        tuner.instrument = 2;
        const face = make(subject);
        const detail = textItem(face, tuner.tuningDetail);
        verify(detail.lineCount > 1);
        verify(!detail.truncated);
        verify(detail.contentWidth <= detail.width);
        verifyInside(detail, face);
        verify(detail.mapToItem(face, detail.width, 0).x <= all(face, Symbol)[0].x);
    }
}
