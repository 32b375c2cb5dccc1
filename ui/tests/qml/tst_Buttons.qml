// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Buttons"

    function controls() {
        return showSized("screen/ControlsCard", {
                width: 444
            });
    }

    function test_a_screen_reader_presses_a_button_unless_it_is_disabled() {
        const button = makePart("controls/PlainButton");
        const clicked = spy(button, "clicked");
        button.Accessible.pressAction();
        compare(clicked.count, 1);
        button.enabled = false;
        button.Accessible.pressAction();
        compare(clicked.count, 1);
    }

    function test_a_button_is_lighter_under_the_mouse_and_more_so_pressed() {
        const button = makePart("controls/PlainButton", {
                width: 40,
                height: 20
            });
        compare(button.light.a, 0);
        mouseMove(button, 10, 10);
        eventually(() => button.light.a > 0);
        const hovered = button.light.a;
        mousePress(button);
        verify(button.light.a > hovered);
        mouseRelease(button);
    }

    function test_is_hovered_while_it_is_under_the_pointer_and_enabled() {
        const area = makePart("controls/PlainButton", {
                width: 40,
                height: 20
            });
        mouseMove(area, 10, 10);
        eventually(() => area.hovered);
        area.y += 200;
        eventually(() => !area.hovered, "it has moved away");
        area.y -= 200;
        eventually(() => area.hovered, "it has come back");
        area.enabled = false;
        mouseMove(area, 12, 10);
        paint(area); // Qt delivers hover events before a frame.
        verify(!area.hovered);
    }

    function test_a_gold_button_is_lighter_under_the_mouse_and_darker_pressed() {
        const button = buttonOf(controls(), "Play reference");
        const lightness = () => Qt.color(colorOf(button)).hslLightness;
        const resting = lightness();
        mouseMove(button, 10, 10);
        eventually(() => lightness() > resting);
        mousePress(button);
        verify(lightness() < resting);
        mouseRelease(button);
    }

    function test_the_background_shows_that_a_button_is_pressed_data() {
        const rows = ["Guitar", "Bass", "Left-handed string order", "Standard", "Auto", "E2"];
        const pitches = ["440  Modern", "Lower", "Raise", "415 Hz", "440 Hz"];
        return [...rows, ...pitches].map(name => ({
                    tag: name
                }));
    }

    function test_the_background_shows_that_a_button_is_pressed(row) {
        const button = buttonOf(controls(), row.tag);
        const resting = colorOf(button);
        mousePress(button);
        verify(colorOf(button) !== resting);
        mouseMove(test, 479, 859);
        mouseRelease(test, 479, 859);
        eventually(() => colorOf(button) === resting);
    }

    function test_the_background_shows_that_its_list_is_open_data() {
        return table(["name", "shown"], [
                ["Standard", controls],
                ["440  Modern", controls],
                ["Help", () => show("screen/HelpMenuBar")]
            ]);
    }

    function test_the_background_shows_that_its_list_is_open(row) {
        const button = buttonOf(row.shown(), row.name);
        const resting = colorOf(button);
        button.press();
        verify(colorOf(button) !== resting);
        only(button, PullDownMenu).close(Qt.MouseFocusReason);
        compare(colorOf(button), resting);
    }

    function test_there_is_no_dead_gap_between_quick_pitches() {
        const row = show("screen/QuickPitches");
        const face = all(buttonOf(row, "415 Hz"), Capsule)[0];
        mouseClick(face, face.width + 3, face.height / 2);
        compare(tuner.wholeHertz, 415);
        mouseClick(face, face.width + 5, face.height / 2);
        compare(tuner.wholeHertz, 432);
    }

    function test_there_is_no_dead_gap_between_the_chips_of_the_strings() {
        const row = showSized("screen/StringRow");
        const face = all(buttonOf(row, "A2"), ContinuousRectangle)[0];
        const strings = [-2, -4, face.width + 2].map(distance => {
                mouseClick(face, distance, face.height / 2);
                return tuner.lockedString;
            });
        compare(strings, [1, 0, 1]);
    }
}
