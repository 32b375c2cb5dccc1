import QtQuick
import Corvane

ScreenTest {
    name: "LevelBar"

    Component {
        id: subject

        LevelBar {
            width: 300
            signal: 0.25
        }
    }

    function test_is_titled_level() {
        const bar = make(subject);
        const title = textItem(bar, "Level");
        compare(title.font.pixelSize, TypeScale.caption);
        compare(title.font.weight, Font.DemiBold);
        compareColor(title.color, TunerTheme.muted);
        compare(bar.spacing, 4);
    }

    function test_its_track_is_6_high_and_as_wide_as_the_card() {
        const track = all(make(subject), Capsule)[0];
        compare(track.width, 300);
        compare(track.height, 6);
        compareColor(track.color, white(0.08));
    }

    function test_is_filled_in_proportion_from_the_leading_edge_data() {
        return [
            {
                tag: "0 draws only the track",
                signal: 0,
                width: 0
            },
            {
                tag: "a quarter",
                signal: 0.25,
                width: 75
            },
            {
                tag: "1 fills it",
                signal: 1,
                width: 300
            }
        ];
    }

    function test_is_filled_in_proportion_from_the_leading_edge(row) {
        const fill = all(make(subject, {
                    signal: row.signal
                }), Capsule)[1];
        compare(fill.x, 0);
        compare(fill.width, row.width);
        compare(fill.height, 6);
        compareColor(fill.color, TunerTheme.gold);
    }

    function test_a_change_that_no_pixel_can_show_changes_nothing() {
        const bar = make(subject);
        const fill = all(bar, Capsule)[1];
        bar.signal = 0.25 + 0.001 / 300;
        compare(fill.width, 75);
        bar.signal = 0.25 + 0.01 / 300;
        fuzzyCompare(fill.width, 75.01, 1 / 512);
        verify(fill.width > 75);
    }

    function test_tells_a_screen_reader_how_loud_it_is() {
        const track = all(make(subject, {
                    words: "30 percent"
                }), Capsule)[0];
        compare(track.Accessible.role, Accessible.ProgressBar);
        compare(track.Accessible.name, "Level");
        compare(track.Accessible.description, "30 percent");
    }
}
