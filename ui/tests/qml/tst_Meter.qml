import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Meter"

    Component {
        id: subject

        Meter {
            tuner: test.tuner
            width: 500
            title: "Cents"
            span: 50
            bar: 16
        }
    }

    Component {
        id: ground

        Rectangle {
            width: 500
            height: 100
            color: TunerTheme.card
        }
    }

    function track(meter) {
        return all(meter, Capsule)[0];
    }

    function band(meter) {
        return all(meter, Capsule)[1];
    }

    function needle(meter) {
        return all(meter, Capsule)[2];
    }

    function centre(meter) {
        return needle(meter).x + needle(meter).width / 2;
    }

    function tryCentre(meter, expected) {
        // A thousandth of a point cannot be seen.
        tryVerify(() => Math.abs(centre(meter) - expected) < 0.001, 5000, `the needle comes to ${expected}`);
    }

    // An A2 that is so many cents off.
    function hearCents(cents) {
        tuner.hear(110 * Math.pow(2, cents / 1200));
    }

    function test_names_itself_and_its_scale() {
        const meter = make(subject);
        compare(texts(meter), ["Cents", "−50   0   +50"]);
        compare(meter.spacing, 4);
        const title = textItem(meter, "Cents");
        compare(title.font.pixelSize, TypeScale.caption);
        compare(title.font.weight, Font.DemiBold);
        compareColor(title.color, TunerTheme.muted);
        const scale = textItem(meter, "−50   0   +50");
        compare(scale.font.pixelSize, TypeScale.caption2);
        compareColor(scale.color, TunerTheme.muted);
        compare(scale.x + scale.width, 500);
    }

    function test_the_bar_is_as_thick_as_it_is_told_and_as_wide_as_the_meter() {
        const meter = make(subject, {
                bar: 14
            });
        compare(track(meter).width, 500);
        compare(track(meter).height, 14);
        compareColor(track(meter).color, white(0.08));
        compare(needle(meter).width, 14);
        compare(needle(meter).height, 14);
        compare(needle(meter).radius, 7);
    }

    function test_the_band_in_tune_is_a_tenth_of_50_cents_and_half_of_10_data() {
        return [
            {
                tag: "Cents",
                span: 50,
                width: 50
            },
            {
                tag: "Fine",
                span: 10,
                width: 250
            },
            {
                tag: "a span below 5 cents is all in tune",
                span: 4,
                width: 500
            }
        ];
    }

    function test_the_band_in_tune_is_a_tenth_of_50_cents_and_half_of_10(row) {
        const middle = band(make(subject, {
                    span: row.span
                }));
        compare(middle.width, row.width);
        compare(middle.x + middle.width / 2, 250);
        compare(middle.height, 16);
        compareColor(middle.color, faded(TunerTheme.green, 0.35));
    }

    function test_the_needle_rests_muted_in_the_middle_while_nothing_is_heard() {
        const meter = make(subject);
        compare(centre(meter), 250);
        compareColor(needle(meter).color, TunerTheme.muted);
    }

    function test_37_cents_that_are_heard_no_more_leave_the_needle_in_the_middle() {
        const meter = make(subject);
        hearCents(37);
        tryCentre(meter, 0.87 * 500);
        tuner.hearNothing();
        fuzzyCompare(tuner.cents, 37, 1e-6);
        tryCentre(meter, 250);
        compareColor(needle(meter).color, TunerTheme.muted);
    }

    function test_12_34_cents_flat_is_at_3766_ten_thousandths_of_the_cents_bar() {
        const meter = make(subject);
        hearCents(-12.34);
        tryCentre(meter, 0.3766 * 500);
        compareColor(needle(meter).color, TunerTheme.flat);
    }

    function test_12_34_cents_flat_pins_the_needle_to_the_start_of_the_fine_bar() {
        const meter = make(subject, {
                span: 10
            });
        hearCents(-12.34);
        tryCentre(meter, 8);
    }

    function test_12_34_cents_sharp_pins_the_needle_to_the_end_of_the_fine_bar() {
        const meter = make(subject, {
                span: 10
            });
        hearCents(12.34);
        tryCentre(meter, 492);
        compareColor(needle(meter).color, TunerTheme.sharp);
    }

    function test_the_needle_is_green_in_tune() {
        const meter = make(subject);
        hearCents(3);
        compareColor(needle(meter).color, TunerTheme.green);
        tryCentre(meter, 0.53 * 500);
    }

    function test_the_needle_moves_instead_of_jumping() {
        const meter = make(subject);
        hearCents(-40);
        compare(centre(meter), 250);
        tryCentre(meter, 50);
    }

    function test_a_move_that_cannot_be_seen_is_not_made() {
        const meter = make(subject, {
                span: 10
            });
        hearCents(3);
        tryCentre(meter, 325);
        const before = needle(meter).goal;
        hearCents(3.003);
        compare(needle(meter).goal, before);
    }

    function test_small_moves_add_up_to_one_that_can_be_seen() {
        const meter = make(subject, {
                span: 10
            });
        for (let step = 0; step <= 10; ++step)
            hearCents(3 + step * 0.003);
        verify(tuner.cents > 3.01);
        // To the tenth of a point that it may lag behind.
        tryVerify(() => Math.abs(centre(meter) - (250 + 25 * tuner.cents)) <= 0.1, 5000, "the needle follows");
    }

    function test_the_needle_that_turns_back_on_its_way_comes_back() {
        const meter = make(subject);
        hearCents(20);
        tuner.hearNothing();
        tryCentre(meter, 250);
    }

    function test_the_needle_keeps_its_place_on_a_bar_that_is_resized() {
        const meter = make(subject);
        hearCents(-40);
        tryCentre(meter, 50);
        meter.width = 300;
        settle(meter);
        fuzzyCompare(centre(meter), 30, 0.001);
    }

    // The colour in the middle of the bar, so many points from its start.
    function paintedAt(meter, x) {
        const place = track(meter).mapToItem(meter, x, 8);
        return grabImage(meter).pixel(Math.round(place.x), Math.round(place.y));
    }

    function test_the_needle_is_painted_over_the_band_and_the_band_over_the_track() {
        make(ground);
        const meter = make(subject);
        hearCents(3);
        tryCentre(meter, 265);
        compare(needle(meter).y + needle(meter).height / 2, track(meter).height / 2);
        waitForRendering(meter);
        compareColor(paintedAt(meter, 265), TunerTheme.green);
        const [bare, inBand] = [paintedAt(meter, 100), paintedAt(meter, 235)];
        verify(inBand.g > bare.g + 0.2, `${inBand} on the band, ${bare} beside it`);
        verify(inBand.g < TunerTheme.green.g - 0.2, `${inBand} under no needle`);
    }

    function test_tells_a_screen_reader_what_it_shows() {
        const bar = track(make(subject, {
                    words: "A2, 3 cents sharp"
                })).parent;
        compare(bar.Accessible.role, Accessible.ProgressBar);
        compare(bar.Accessible.name, "Cents");
        compare(bar.Accessible.description, "A2, 3 cents sharp");
    }
}
