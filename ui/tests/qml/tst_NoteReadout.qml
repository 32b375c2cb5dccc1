import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "NoteReadout"

    Component {
        id: subject

        NoteReadout {
            property size area: test.ideal

            width: 384
            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    function middleOf(item, readout) {
        return item.mapToItem(readout, item.width / 2, 0).x;
    }

    // An A2 that is so many cents off.
    function hearCents(cents) {
        tuner.hear(110 * Math.pow(2, cents / 1200));
    }

    function verifySize(label, points) {
        // Fonts come in whole points.
        verify(Math.abs(label.font.pixelSize - points) <= 0.5, `${label.text} is ${label.font.pixelSize} high, not ${points}`);
    }

    function test_shows_a_dash_and_no_octave_before_anything_is_heard() {
        const readout = make(subject);
        compare(texts(readout), ["—", "0.0 ¢", "Play a note"]);
        compare(readout.spacing, 2);
    }

    function test_without_an_octave_the_note_alone_is_centred() {
        const readout = make(subject);
        // Whole points, as texts are placed on them.
        verify(Math.abs(middleOf(textItem(readout, "—"), readout) - 192) <= 0.5);
    }

    function test_shows_note_octave_cents_and_verdict() {
        const readout = make(subject);
        hearCents(-12.34);
        compare(texts(readout), ["A", "2", "−12.3 ¢", "Flat"]);
    }

    function test_the_octave_stands_on_the_baseline_of_the_note() {
        const readout = make(subject);
        hearCents(0);
        settle(readout);
        const note = textItem(readout, "A");
        const octave = textItem(readout, "2");
        fuzzyCompare(octave.y + octave.baselineOffset, note.y + note.baselineOffset, 0.01);
        compare(octave.x, note.x + note.width + 4);
    }

    function test_its_colours_follow_the_verdict_data() {
        return [
            {
                tag: "flat",
                cents: -12.34,
                color: TunerTheme.flat,
                status: "Flat"
            },
            {
                tag: "in tune",
                cents: 3,
                color: TunerTheme.green,
                status: "In tune"
            },
            {
                tag: "sharp",
                cents: 12.34,
                color: TunerTheme.sharp,
                status: "Sharp"
            }
        ];
    }

    function test_its_colours_follow_the_verdict(row) {
        const readout = make(subject);
        hearCents(row.cents);
        for (const text of ["A", "2", row.status])
            compareColor(textItem(readout, text).color, row.color);
        compare(textItem(readout, "2").opacity, 0.85);
        compareColor(textItem(readout, tuner.centsText).color, "white");
    }

    function test_everything_is_muted_while_nothing_is_heard_whatever_was_heard_before() {
        const readout = make(subject);
        hearCents(37);
        tuner.hearNothing();
        for (const text of ["A", "0.0 ¢", tuner.status])
            compareColor(textItem(readout, text).color, TunerTheme.muted);
    }

    function test_its_sizes_follow_the_height_data() {
        return [
            {
                tag: "smallest",
                area: smallest,
                note: 71.4,
                cents: 0.28 * 71.4
            },
            {
                tag: "ideal",
                area: ideal,
                note: 90.3,
                cents: 0.28 * 90.3
            },
            {
                tag: "large",
                area: large,
                note: 100,
                cents: 28
            },
            {
                tag: "the smallest note has cents of 18",
                area: Qt.size(480, 400),
                note: 52,
                cents: 18
            }
        ];
    }

    function test_its_sizes_follow_the_height(row) {
        const readout = make(subject, {
                area: row.area
            });
        hearCents(3);
        verifySize(textItem(readout, "A"), row.note);
        verifySize(textItem(readout, "2"), 0.34 * row.note);
        verifySize(textItem(readout, "+3.0 ¢"), row.cents);
        compare(textItem(readout, "In tune").font.pixelSize, TypeScale.body);
    }

    function test_its_weights_and_round_letters() {
        const readout = make(subject);
        hearCents(3);
        compare(textItem(readout, "A").font.weight, Font.Bold);
        for (const text of ["2", "+3.0 ¢", "In tune"])
            compare(textItem(readout, text).font.weight, Font.DemiBold);
        for (const text of ["A", "2", "+3.0 ¢"])
            compare(textItem(readout, text).font.family, TypeScale.rounded);
        verify(textItem(readout, "+3.0 ¢") instanceof FixedDigits);
    }

    function test_a_note_that_is_too_wide_shrinks_to_no_less_than_half() {
        const readout = make(subject, {
                width: 70,
                area: large
            });
        tuner.instrument = 2;
        tuner.hear(466.1638);
        settle(readout);
        const note = textItem(readout, "A♯");
        verify(note.contentWidth <= 70, note.contentWidth);
        verify(!note.truncated);
        compare(note.lineCount, 1);
        compare(note.minimumPixelSize, 50);
    }

    function test_every_row_is_centred() {
        const readout = make(subject);
        hearCents(3);
        settle(readout);
        // Whole points, as texts are placed on them.
        for (const text of ["+3.0 ¢", "In tune"])
            verify(Math.abs(middleOf(textItem(readout, text), readout) - 192) <= 0.5, text);
    }

    function test_a_screen_reader_can_read_every_text() {
        const readout = make(subject);
        hearCents(3);
        compare(textItems(readout).map(each => each.Accessible.name), texts(readout));
        compare(textItems(readout).map(each => each.Accessible.description), ["Note", "Octave", "Cents", "Status"]);
        for (const each of textItems(readout))
            compare(each.Accessible.role, Accessible.StaticText);
    }
}
