import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "ReferenceRow"

    readonly property string hint: "A=440 is the modern standard. Older concerts used many other pitches, from about 377 Hz to above 560 Hz. In tune means within 5 cents."

    Component {
        id: subject

        ReferenceRow {
            property size area: test.ideal

            width: 364
            spacing: 6
            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    function test_its_four_items_stand_in_their_order() {
        const row = make(subject);
        const pitch = all(row, ConcertPitchRow)[0];
        const quick = all(row, QuickPitches)[0];
        const play = all(row, PlayButton)[0];
        compare(pitch.y, 0);
        compare(quick.y, pitch.height + 6);
        compare(play.y, quick.y + quick.height + 6);
        compare(textItem(row, hint).y, play.y + play.height + 6);
        compare(play.width, 364);
    }

    function test_the_hint_needs_more_than_780_points_data() {
        return [
            {
                tag: "smallest",
                height: 680,
                shown: false
            },
            {
                tag: "780",
                height: 780,
                shown: false
            },
            {
                tag: "781",
                height: 781,
                shown: true
            },
            {
                tag: "large",
                height: 1000,
                shown: true
            }
        ];
    }

    function test_the_hint_needs_more_than_780_points(row) {
        const reference = make(subject, {
                area: Qt.size(480, row.height)
            });
        compare(texts(reference).includes(hint), row.shown);
    }

    function test_the_hint_is_muted_small_and_whole() {
        const text = textItem(make(subject), hint);
        compare(text.font.pixelSize, TypeScale.caption2);
        compareColor(text.color, TunerTheme.muted);
        verify(text.lineCount > 1);
        verify(!text.truncated);
        compare(text.width, 364);
    }

    function test_the_play_button_is_tighter_in_a_low_window() {
        verify(all(make(subject), PlayButton)[0].compact);
        verify(!all(make(subject, {
                        area: large
                    }), PlayButton)[0].compact);
    }
}
