// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Readout"

    function noteReadout(width, height) {
        return showSized("screen/NoteReadout", {
                width: width ?? 384,
                metrics: tuner.fit(480, height ?? 860)
            });
    }

    function test_shows_note_octave_cents_and_verdict_in_its_color() {
        const readout = noteReadout();
        hearCents(-12.34);
        compare(texts(readout), ["A", "2", "−12.3 ¢", "Flat"]);
        const [note, octave, cents, status] = textItems(readout);
        for (const [heard, color] of [[-12.34, "flat"], [3, "green"], [12.34, "sharp"]]) {
            hearCents(heard);
            for (const each of [note, octave, status])
                compareColor(each.color, TunerTheme[color]);
            compareColor(cents.color, "white");
        }
    }

    function test_in_silence_37_cents_are_shown_as_0_and_all_is_muted() {
        const readout = noteReadout();
        hearCents(37);
        tuner.hearNothing();
        compare(texts(readout), ["A", "2", "0.0 ¢", tuner.status]);
        for (const each of textItems(readout))
            compareColor(each.color, TunerTheme.muted);
    }

    function test_an_empty_octave_label_leaves_the_note_alone_and_centred() {
        const readout = noteReadout();
        compare(texts(readout), ["—", "0.0 ¢", "Play a note"]);
        const note = textItem(readout, "—");
        // Texts are placed on whole points.
        fuzzyCompare(note.mapToItem(readout, note.width / 2, 0).x, 192, 0.5);
    }

    function test_a_note_of_52_has_cents_of_18_and_one_of_100_cents_of_28_and_an_octave_of_34_data() {
        // Font sizes are whole.
        return table(["note", "height", "octave", "cents"], [
                [52, 400, Math.round(0.34 * 52), 18],
                [100, 1000, 34, 28]
            ]);
    }

    function test_a_note_of_52_has_cents_of_18_and_one_of_100_cents_of_28_and_an_octave_of_34(row) {
        const readout = noteReadout(384, row.height);
        hearCents(3);
        const sizes = textItems(readout).map(each => each.font.pixelSize);
        compare(sizes.slice(0, 3), [row.note, row.octave, row.cents]);
    }

    function test_a_note_that_is_too_wide_shrinks_beside_its_octave_to_no_less_than_half() {
        const readout = noteReadout(110, 1000);
        tuner.instrument = 2;
        tuner.hear(466.1638);
        settle(readout);
        const note = textItem(readout, "A");
        const octave = textItem(readout, "4");
        verifyInside(octave, readout, 0.5); // Texts are placed on whole points.
        compare([note.lineCount, note.font.pixelSize < 100, note.Accessible.name], [1, true, "A♯"]);
    }

    function test_the_frequency_line_names_the_heard_note_while_it_is_heard() {
        const line = show("screen/FrequencyLine");
        compare(texts(line), ["— Hz"]);
        tuner.hear(440.04);
        compare(texts(line), ["440.0 Hz", "Hearing A4"]);
        tuner.hearNothing();
        compare(texts(line), ["— Hz"]);
    }
}
