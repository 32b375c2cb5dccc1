import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Card"

    Component {
        id: subject

        Card {
            property size area: test.ideal

            metrics: test.tuner.fit(area.width, area.height)
            width: 300
            spacing: 8

            Item {
                objectName: "upper"
                width: parent.width
                height: 20
            }

            Item {
                objectName: "lower"
                width: parent.width
                height: 30
            }
        }
    }

    function test_its_padding_follows_the_height_data() {
        return [
            {
                tag: "smallest",
                area: smallest,
                padding: 10
            },
            {
                tag: "ideal",
                area: ideal,
                padding: 10
            },
            {
                tag: "large",
                area: large,
                padding: 14
            }
        ];
    }

    function test_its_padding_follows_the_height(row) {
        const card = make(subject, {
                area: row.area
            });
        const upper = findChild(card, "upper");
        const place = upper.mapToItem(card, 0, 0);
        compare(place.x, row.padding);
        compare(place.y, row.padding);
        compare(upper.width, 300 - 2 * row.padding);
        compare(card.implicitHeight, 20 + 8 + 30 + 2 * row.padding);
    }

    function test_stacks_what_stands_in_it() {
        const card = make(subject);
        const lower = findChild(card, "lower").mapToItem(card, 0, 0).y;
        const upper = findChild(card, "upper").mapToItem(card, 0, 0).y;
        compare(lower - upper, 20 + 8);
    }

    function test_has_a_ground_of_its_own() {
        const ground = all(make(subject), ContinuousRectangle)[0];
        compareColor(ground.color, TunerTheme.card);
        compare(ground.radius, 16);
        compare(ground.width, 300);
    }
}
