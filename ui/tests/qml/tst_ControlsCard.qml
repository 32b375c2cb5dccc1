import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "ControlsCard"

    Component {
        id: subject

        ControlsCard {
            property size area: test.ideal

            width: area.width - 36
            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    function regions(card) {
        return [InstrumentPicker, TuningMenu, StringRow, ReferenceRow].map(type => all(card, type)[0]);
    }

    function test_its_regions_stand_in_their_order() {
        const card = make(subject);
        const [picker, menu, strings, reference] = regions(card);
        verifyBelow(menu, picker);
        verifyBelow(strings, menu);
        verifyBelow(reference, strings);
    }

    function test_the_piano_has_no_string_row() {
        const card = make(subject);
        verify(regions(card)[2].visible);
        const before = card.implicitHeight;
        tuner.instrument = 2;
        verify(!regions(card)[2].visible);
        tryVerify(() => card.implicitHeight < before);
        tuner.instrument = 1;
        verify(regions(card)[2].visible);
    }

    function test_its_sizes_follow_the_height_data() {
        return [
            {
                tag: "smallest",
                area: smallest,
                spacing: 6,
                padding: 10
            },
            {
                tag: "ideal",
                area: ideal,
                spacing: 6,
                padding: 10
            },
            {
                tag: "large",
                area: large,
                spacing: 8,
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
        const [picker, menu] = regions(card);
        compare(picker.mapToItem(card, 0, 0).x, row.padding);
        compare(picker.mapToItem(card, 0, 0).y, row.padding);
        compare(menu.y - picker.y - picker.height, row.spacing);
    }

    function test_the_items_of_the_reference_row_are_spaced_as_the_card_is() {
        const reference = regions(make(subject, {
                    area: large
                }))[3];
        compare(all(reference, QuickPitches)[0].y, all(reference, ConcertPitchRow)[0].height + 8);
    }

    function test_eight_strings_fit_into_the_ideal_window() {
        tuner.chooseTuning("g8-standard");
        const card = make(subject);
        verifyInside(regions(card)[2], card);
        verify(regions(card)[2].width <= card.width - 2 * card.padding + 0.01);
    }

    function test_eight_strings_stay_on_the_card_in_the_smallest_window() {
        tuner.chooseTuning("g8-standard");
        const card = make(subject, {
                area: smallest
            });
        verifyInside(regions(card)[2], card);
    }
}
