import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Meters"

    Component {
        id: subject

        Meters {
            property size area: test.ideal

            width: 400
            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    function test_holds_two_meters_and_the_level_in_this_order() {
        const card = make(subject);
        compare(texts(card), ["Cents", "−50   0   +50", "Fine", "−10   0   +10", "Level"]);
        const meters = all(card, Meter);
        verifyBelow(meters[1], meters[0]);
        verifyBelow(all(card, LevelBar)[0], meters[1]);
    }

    function test_its_sizes_follow_the_height_data() {
        return [
            {
                tag: "smallest",
                area: smallest,
                bar: 14,
                spacing: 6,
                padding: 10
            },
            {
                tag: "ideal",
                area: ideal,
                bar: 16,
                spacing: 6,
                padding: 10
            },
            {
                tag: "large",
                area: large,
                bar: 16,
                spacing: 10,
                padding: 14
            }
        ];
    }

    function test_its_sizes_follow_the_height(row) {
        const card = make(subject, {
                area: row.area
            });
        compare(card.spacing, row.spacing);
        compare(card.padding, row.padding);
        const meters = all(card, Meter);
        compare(meters.map(each => each.bar), [row.bar, row.bar]);
        compare(meters[0].width, 400 - 2 * row.padding);
        compare(meters[1].y - meters[0].y - meters[0].height, row.spacing);
    }

    function test_shows_how_loud_it_is() {
        const level = all(make(subject), LevelBar)[0];
        compare(level.signal, 0);
        tuner.hear(110, 0.99, 0.05);
        // The level is twelve times a 32-bit 0.05.
        fuzzyCompare(level.signal, 0.6, 1e-6);
        tuner.hear(110, 0.99, 0.5);
        compare(level.signal, 1);
    }
}
