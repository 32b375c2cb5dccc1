import QtQuick
import QtTest
import Corvane

ScreenTest {
    id: test

    name: "TunerView"

    Component {
        id: subject

        TunerView {
            width: 480
            height: 860
            tuner: test.tuner
        }
    }

    SignalSpy {
        id: frames

        target: test.Window.window
        signalName: "frameSwapped"
    }

    function sized(size) {
        return make(subject, {
                width: size.width,
                height: size.height
            });
    }

    function column(view) {
        return view.children[0];
    }

    function only(view, type) {
        const found = all(view, type);
        compare(found.length, 1, `there is one ${type}`);
        return found[0];
    }

    function sizes() {
        return [
            {
                tag: "smallest",
                size: smallest
            },
            {
                tag: "ideal",
                size: ideal
            },
            {
                tag: "large",
                size: large
            },
            {
                tag: "wide and low",
                size: Qt.size(2000, 680)
            }
        ];
    }

    function test_its_regions_stand_in_their_order() {
        tuner.loseMicrophone();
        const view = make(subject);
        const regions = [Header, NoteReadout, Meters, FrequencyLine, ControlsCard, MicrophonePrompt, Footer].map(type => only(view, type));
        for (let i = 1; i < regions.length; ++i) {
            verify(regions[i].visible);
            fuzzyCompare(regions[i].y - regions[i - 1].y - regions[i - 1].height, view.metrics.gap, 0.01);
        }
    }

    function test_hands_its_metrics_to_its_regions() {
        const view = sized(large);
        compare(view.metrics, tuner.fit(700, 1000));
        for (const type of [NoteReadout, Meters, ControlsCard, Footer])
            compare(only(view, type).metrics, view.metrics);
    }

    function test_the_column_is_padded_by_the_metrics_data() {
        return sizes();
    }

    function test_the_column_is_padded_by_the_metrics(row) {
        const view = sized(row.size);
        const fit = view.metrics;
        const header = only(view, Header);
        const footer = only(view, Footer);
        compare(header.x, fit.side);
        compare(header.y, fit.pad);
        compare(header.width, column(view).width - 2 * fit.side);
        fuzzyCompare(footer.y + footer.height + fit.pad, column(view).implicitHeight, 0.01);
    }

    function test_the_column_is_at_most_640_wide_and_centred() {
        const view = sized(Qt.size(2000, 1000));
        compare(column(view).width, 640);
        compare(column(view).x, 680);
        view.width = 480;
        settle(view);
        compare(column(view).width, 480);
        compare(column(view).x, 0);
    }

    function test_a_column_shorter_than_the_window_is_centred_at_its_own_size() {
        const view = sized(Qt.size(480, 1600));
        verify(column(view).implicitHeight < 1600);
        compare(column(view).scale, 1);
        const middle = column(view).mapToItem(view, column(view).width / 2, column(view).height / 2);
        // Centred items are placed on whole points.
        verify(Math.abs(middle.x - 240) <= 0.5 && Math.abs(middle.y - 800) <= 0.5, `${middle}`);
    }

    function test_a_column_of_1000_in_a_window_of_800_shrinks_to_four_fifths_about_its_centre() {
        const view = sized(Qt.size(480, 800));
        column(view).bottomPadding += 1000 - column(view).implicitHeight;
        settle(view);
        compare(column(view).implicitHeight, 1000);
        compare(column(view).scale, 0.8);
        const start = column(view).mapToItem(view, 0, 0);
        const end = column(view).mapToItem(view, 480, 1000);
        // Centred items are placed on whole points.
        verify(Math.abs(start.y) <= 0.5, `starts at ${start.y}`);
        verify(Math.abs(end.y - 800) <= 0.5, `ends at ${end.y}`);
        verify(Math.abs(start.x - 48) <= 0.5, `starts at ${start.x}`);
        verify(Math.abs(end.x - 432) <= 0.5, `ends at ${end.x}`);
    }

    function test_what_is_measured_does_not_depend_on_the_scale() {
        tuner.loseMicrophone();
        const view = sized(Qt.size(480, 400));
        const natural = column(view).implicitHeight;
        compare(column(view).scale, 400 / natural);
        // Here the sizes are as at 400, where the note is smallest already.
        view.height = 300;
        settle(view);
        compare(column(view).implicitHeight, natural);
        compare(column(view).scale, 300 / natural);
    }

    function test_everything_is_inside_the_window_data() {
        return sizes();
    }

    function test_everything_is_inside_the_window(row) {
        tuner.loseMicrophone();
        const view = sized(row.size);
        for (const type of [Header, NoteReadout, Meters, FrequencyLine, ControlsCard, MicrophonePrompt, Footer]) {
            const region = only(view, type);
            const place = region.mapToItem(view, 0, 0);
            const end = region.mapToItem(view, region.width, region.height);
            // Centred items are placed on whole points.
            verify(place.x >= -0.5 && place.y >= -0.5, `${region} starts at ${place}`);
            verify(end.x <= view.width + 0.5 && end.y <= view.height + 0.5, `${region} ends at ${end}`);
        }
    }

    function test_the_smallest_window_shows_neither_hint_nor_version() {
        const shown = texts(sized(smallest)).join();
        verify(!shown.includes("A=440"));
        verify(!shown.includes("Version"));
    }

    function test_the_ideal_window_shows_hint_and_version() {
        const shown = texts(sized(ideal)).join();
        verify(shown.includes("A=440"));
        verify(shown.includes("Version " + tuner.appVersion));
    }

    function test_the_prompt_is_there_while_there_is_a_problem_only() {
        const view = make(subject);
        const prompt = only(view, MicrophonePrompt);
        verify(!prompt.visible);
        verify(!texts(view).includes("Allow Microphone"));
        tuner.loseMicrophone();
        verify(prompt.visible);
        tuner.findMicrophone();
        mouseClick(buttonOf(view, "Allow Microphone"));
        verify(tuner.listening);
        verify(!prompt.visible);
    }

    function test_the_piano_has_no_string_row_and_every_other_tuning_has_one() {
        const view = make(subject);
        const strings = only(view, StringRow);
        verify(strings.visible);
        tuner.instrument = 2;
        verify(!strings.visible);
        verify(texts(view).includes("Mode"));
        tuner.instrument = 1;
        verify(strings.visible);
    }

    function test_never_scrolls() {
        compare(all(make(subject), Flickable).length, 0);
    }

    // Until the median of the last five is this alone.
    function hearForLong(frequency) {
        for (let i = 0; i < 5; ++i)
            tuner.hear(frequency);
    }

    function test_a_level_that_cannot_be_seen_is_not_painted() {
        const view = make(subject);
        tuner.start();
        hearForLong(441);
        // By 0.6 each time: after thirty a bar of 400 points is shorter than 0.0001.
        for (let i = 0; i < 30; ++i)
            tuner.hearNothing();
        wait(300); // The needle's movement takes 80 ms.
        frames.clear();
        const before = tuner.level;
        tuner.hearNothing();
        verify(tuner.level < before, "the level goes on falling");
        wait(300);
        compare(frames.count, 0);
    }

    function test_a_new_reading_is_painted_and_the_same_one_again_is_not() {
        const view = make(subject);
        tuner.start();
        hearForLong(441);
        const needleSettled = 300; // Its movement takes 80 ms.
        wait(needleSettled);
        frames.clear();
        hearForLong(441);
        wait(needleSettled);
        compare(frames.count, 0);
        hearForLong(442);
        tryVerify(() => frames.count > 0);
    }

    function test_the_keyboard_goes_on_when_the_prompt_that_has_it_is_gone() {
        tuner.loseMicrophone();
        const view = make(subject);
        const prompt = all(view, MicrophonePrompt)[0];
        const button = buttonOf(prompt, "Allow Microphone");
        button.forceActiveFocus(Qt.TabFocusReason);
        verify(button.activeFocus);
        tuner.findMicrophone();
        keyClick(Qt.Key_Space);
        verify(!prompt.visible);
        compare(view.Window.activeFocusItem?.Accessible.name, "Privacy Policy");
    }

    function test_the_keyboard_comes_back_with_the_prompt_unless_it_was_moved_data() {
        return [
            {
                tag: "left",
                key: Qt.Key_Shift,
                holder: "Allow Microphone"
            },
            {
                tag: "moved",
                key: Qt.Key_Tab,
                holder: "Guitar"
            }
        ];
    }

    function test_the_keyboard_comes_back_with_the_prompt_unless_it_was_moved(row) {
        tuner.loseMicrophone();
        const view = make(subject);
        const prompt = only(view, MicrophonePrompt);
        buttonOf(prompt, "Allow Microphone").forceActiveFocus(Qt.TabFocusReason);
        tuner.findMicrophone();
        keyClick(Qt.Key_Space);
        verify(!prompt.visible);
        keyClick(row.key);
        tuner.loseMicrophone();
        verify(prompt.visible);
        compare(view.Window.activeFocusItem?.Accessible.name, row.holder);
    }

    function test_its_lines_are_on_whole_points_data() {
        return [
            {
                tag: "ideal",
                size: ideal
            },
            {
                tag: "large",
                size: large
            },
            {
                tag: "odd",
                size: Qt.size(531, 907)
            }
        ];
    }

    function test_its_lines_are_on_whole_points(row) {
        const view = sized(row.size);
        compare(column(view).scale, 1);
        const faces = all(view, Chip).map(chip => groundOf(chip));
        verify(faces.length > 6);
        for (const item of [...all(view, Card), ...faces]) {
            const place = item.mapToItem(view, 0, 0, item.width, item.height);
            for (const edge of [place.x, place.y, place.width, place.height])
                fuzzyCompare(edge, Math.round(edge), 0.001, `${item} at ${place}`);
        }
    }
}
