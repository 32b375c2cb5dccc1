// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "Meters"

    SignalSpy {
        id: frames

        target: test.Window.window
        signalName: "frameSwapped"
    }

    function meter(span) {
        return show("screen/Meter", {
                width: 500,
                title: "Cents",
                span: span ?? 50,
                bar: 16
            });
    }

    function needle(meter) {
        return all(meter, Needle)[0];
    }

    function centre(meter) {
        return needle(meter).x + needle(meter).width / 2;
    }

    // A thousandth of a point cannot be seen.
    function tryCentre(meter, expected) {
        eventually(() => Math.abs(centre(meter) - expected) < 0.001, `the needle comes to ${expected}`);
    }

    function test_the_needle_moves_to_its_place_in_its_color_data() {
        return table(["name", "span", "cents", "centre", "color"], [
                ["12.34 flat is at 0.3766 of the cents bar", 50, -12.34, 0.3766 * 500, TunerTheme.flat],
                ["12.34 flat is pinned to the start of the fine bar", 10, -12.34, 8, TunerTheme.flat],
                ["12.34 sharp is pinned to its end", 10, 12.34, 492, TunerTheme.sharp],
                ["3 sharp is in tune", 50, 3, 0.53 * 500, TunerTheme.green]
            ]);
    }

    function test_the_needle_moves_to_its_place_in_its_color(row) {
        const made = meter(row.span);
        hearCents(row.cents);
        compareColor(needle(made).color, row.color);
        const way = (centre(made) - 250) / (row.centre - 250);
        verify(way > 0.2 && way < 0.8, `it begins to move in the same frame, and does not jump: ${way}`);
        tryCentre(made, row.centre);
    }

    function test_in_silence_37_cents_leave_the_needle_muted_in_the_middle() {
        const made = meter();
        hearCents(37);
        tryCentre(made, 0.87 * 500);
        tuner.hearNothing();
        tryCentre(made, 250);
        compareColor(needle(made).color, TunerTheme.muted);
    }

    function test_a_needle_can_turn_back_during_its_move() {
        const made = meter();
        hearCents(20);
        tuner.hearNothing();
        tryCentre(made, 250);
    }

    function test_the_needle_keeps_its_place_on_a_bar_that_is_resized() {
        const made = meter();
        hearCents(-40);
        tryCentre(made, 50);
        made.width = 300;
        settle(made);
        fuzzyCompare(centre(made), 30, 0.001);
    }

    function test_invisible_moves_are_skipped_but_add_up() {
        const made = meter(10);
        hearCents(3);
        tryCentre(made, 325);
        const before = needle(made).goal;
        hearCents(3.003);
        compare(needle(made).goal, before);
        for (let step = 2; step <= 10; ++step)
            hearCents(3 + step * 0.003);
        // Up to the tenth of a point that it may lag.
        eventually(() => Math.abs(centre(made) - (250 + 25 * tuner.cents)) <= 0.1);
    }

    function test_signal_0_draws_only_the_track_and_signal_1_fills_it() {
        const bar = makePart("screen/LevelBar", {
                width: 300,
                signal: 0
            });
        const [track, fill] = all(bar, Capsule);
        const widths = [0, 0.25, 1].map(signal => {
                bar.signal = signal;
                return fill.width;
            });
        compare(widths, [0, 75, 300]);
        compare(track.width, 300);
    }

    function test_an_invisible_change_of_level_changes_nothing() {
        const bar = makePart("screen/LevelBar", {
                width: 300,
                signal: 0.25 + 0.001 / 300
            });
        const fill = all(bar, Capsule)[1];
        compare(fill.width, 75);
        bar.signal = 0.25 + 0.01 / 300;
        verify(fill.width > 75);
        fuzzyCompare(fill.width, 75.01, 1 / 512);
    }

    function comeToRest(view) {
        for (const each of all(view, Meter))
            eventually(() => needle(each).value === needle(each).goal);
        while (framesAfter(() => {}) > 0)
            ;
    }

    // Qt schedules a frame 5 ms after a change.
    function framesAfter(change) {
        frames.clear();
        change();
        probe.runFor(100);
        return frames.count;
    }

    function test_only_visible_items_are_painted() {
        const view = show("screen/TunerView", {
                width: 480,
                height: 860
            });
        hearCents(20);
        comeToRest(view);
        compare(framesAfter(() => hearCents(20)), 0, "the same reading again");
        hearCents(24);
        eventually(() => frames.count > 0);
        // By 0.6 each time: after 24 a bar of 400 points is 0.001 long.
        for (let i = 0; i < 24; ++i)
            tuner.hearNothing();
        comeToRest(view);
        const before = tuner.level;
        compare(framesAfter(() => tuner.hearNothing()), 0, "a level that dies away");
        verify(tuner.level < before);
    }
}
