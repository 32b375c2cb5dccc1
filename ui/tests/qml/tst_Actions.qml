// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Actions"

    function screen() {
        return show("screen/TunerView", {
                width: 480,
                height: 860
            });
    }

    function allowButton(view) {
        return buttonOf(view, "Allow Microphone");
    }

    function test_the_play_button_says_what_it_does_and_what_it_is_doing() {
        const button = show("screen/PlayButton", {
                width: 364,
                compact: true
            });
        compare(texts(button), ["Play reference"]);
        mouseClick(button);
        compare(texts(button), ["Playing"]);
        compare(tuner.tones, 1);
        tuner.endTone();
        compare(texts(button), ["Play reference"]);
    }

    function test_with_no_error_text_the_prompt_is_absent_else_it_stands_between_controls_and_footer() {
        const view = screen();
        const prompt = only(view, MicrophonePrompt);
        verify(!prompt.visible);
        tuner.loseMicrophone();
        verify(prompt.visible);
        settle(view);
        const regions = [ControlsCard, MicrophonePrompt, Footer].map(type => only(view, type));
        verify(regions[1].y >= regions[0].y + regions[0].height);
        verify(regions[2].y >= regions[1].y + regions[1].height);
        tuner.findMicrophone();
        mouseClick(allowButton(view));
        verify(tuner.listening && !prompt.visible);
    }

    function test_the_prompt_says_what_is_wrong_on_as_many_lines_as_it_takes() {
        tuner.loseMicrophone();
        const prompt = show("screen/MicrophonePrompt", {
                width: 120
            });
        const message = textItem(prompt, "No microphone is available.");
        verify(message.lineCount > 1 && !message.truncated);
        verifyInside(message, prompt);
    }

    function test_the_focus_moves_on_with_the_prompt_and_returns_unless_moved_data() {
        return table(["name", "key", "holder"], [
                ["left", Qt.Key_Shift, "Allow Microphone"],
                ["moved", Qt.Key_Tab, "Guitar"]
            ]);
    }

    function test_the_focus_moves_on_with_the_prompt_and_returns_unless_moved(row) {
        tuner.loseMicrophone();
        const view = screen();
        const holder = () => view.Window.activeFocusItem?.Accessible.name;
        allowButton(view).forceActiveFocus(Qt.TabFocusReason);
        tuner.findMicrophone();
        keyClick(Qt.Key_Space);
        compare(holder(), "Privacy Policy");
        keyClick(row.key);
        tuner.loseMicrophone();
        compare(holder(), row.holder);
    }

    function test_a_prompt_without_focus_leaves_the_focus_alone() {
        const view = screen();
        for (const name of ["Play reference", "Privacy Policy"]) {
            tuner.loseMicrophone();
            const button = buttonOf(view, name);
            button.forceActiveFocus(Qt.TabFocusReason);
            tuner.findMicrophone();
            tuner.start();
            verify(button.activeFocus, name);
        }
        tuner.loseMicrophone();
        verify(buttonOf(view, "Privacy Policy").activeFocus);
    }

    function test_the_link_is_underlined_under_the_mouse_and_opens_the_privacy_policy() {
        const link = buttonOf(showSized("screen/Footer"), "Privacy Policy");
        const title = textItem(link, "Privacy Policy");
        verify(link.width >= title.width + 10 && link.height >= title.height + 10);
        verify(!title.font.underline);
        mouseMove(link, 5, 5);
        eventually(() => title.font.underline);
        mouseClick(link);
        compare(tuner.opened, 1);
    }
}
