// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Screen"

    function sized(width, height) {
        return show("screen/TunerView", {
                width: width,
                height: height
            });
    }

    function column(view) {
        return view.children[0];
    }

    // Centred items are placed on whole points.
    function verifyPlace(view, left, top, right, bottom) {
        const place = column(view).mapToItem(view, 0, 0, column(view).width, column(view).height);
        fuzzyCompare(place.left, left, 0.5);
        fuzzyCompare(place.top, top, 0.5);
        fuzzyCompare(place.right, right, 0.5);
        fuzzyCompare(place.bottom, bottom, 0.5);
    }

    function test_the_column_is_at_most_640_wide() {
        compare(column(sized(2000, 1000)).width, 640);
        compare(column(sized(480, 1000)).width, 480);
    }

    function test_a_column_of_1000_in_a_window_of_800_is_drawn_at_0_8_about_its_centre() {
        const view = sized(480, 800);
        column(view).bottomPadding += 1000 - column(view).implicitHeight;
        settle(view);
        compare(column(view).scale, 0.8);
        verifyPlace(view, 48, 0, 432, 800);
    }

    function test_a_column_shorter_than_the_window_is_drawn_at_scale_1_and_centred() {
        const view = sized(480, 1600);
        const height = column(view).implicitHeight;
        verify(height < 1600);
        compare(column(view).scale, 1);
        verifyPlace(view, 0, 800 - height / 2, 480, 800 + height / 2);
    }

    function test_measurements_do_not_depend_on_the_scale() {
        tuner.loseMicrophone();
        const view = sized(480, 400);
        const natural = column(view).implicitHeight;
        // The sizes of a height of 400, where the note has its smallest size.
        view.height = 300;
        settle(view);
        compare(column(view).implicitHeight, natural);
        compare(column(view).scale, 300 / natural);
    }

    function test_eight_strings_keep_clear_of_the_edges_of_their_card() {
        tuner.chooseTuning("g8-standard");
        const view = sized(420, 680);
        const card = only(view, ControlsCard);
        const ground = all(card, ContinuousRectangle)[0];
        for (const chip of all(card, Chip)) {
            const face = all(chip, ContinuousRectangle)[0].mapToItem(ground, 0, 0, chip.height, chip.height);
            verify(face.left >= card.padding && face.right <= ground.width - card.padding, `${face}`);
        }
    }

    function test_its_lines_are_on_whole_points() {
        const view = sized(531, 907);
        compare(column(view).scale, 1);
        const faces = all(view, Chip).map(chip => all(chip, ContinuousRectangle)[0]);
        compare(faces.length, 7);
        for (const item of [...all(view, Card), ...faces]) {
            const place = item.mapToItem(view, 0, 0, item.width, item.height);
            for (const edge of [place.x, place.y, place.width, place.height])
                fuzzyCompare(edge, Math.round(edge), 0.001, `${item} at ${place}`);
        }
    }
}
