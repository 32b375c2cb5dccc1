import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "MicrophonePrompt"

    Component {
        id: subject

        MicrophonePrompt {
            width: 384
            tuner: test.tuner
        }
    }

    function button(prompt) {
        return buttonOf(prompt, "Allow Microphone");
    }

    function test_says_what_is_wrong_over_the_button() {
        tuner.loseMicrophone();
        const prompt = make(subject);
        compare(texts(prompt), ["No microphone is available.", "Allow Microphone"]);
        compare(prompt.spacing, 8);
        verifyBelow(button(prompt), textItem(prompt, "No microphone is available."));
    }

    function test_the_message_is_centred_over_several_lines() {
        tuner.loseMicrophone();
        const prompt = make(subject, {
                width: 120
            });
        const message = textItem(prompt, "No microphone is available.");
        compare(message.horizontalAlignment, Text.AlignHCenter);
        verify(message.lineCount > 1);
        verify(!message.truncated);
        compareColor(message.color, TunerTheme.flat);
        compare(message.font.pixelSize, TypeScale.footnote);
        compare(message.Accessible.role, Accessible.AlertMessage);
    }

    function test_the_button_is_gold_black_and_as_wide_as_the_column() {
        const prompt = make(subject);
        compare(button(prompt).width, 384);
        verify(groundOf(button(prompt)) instanceof GoldFace);
        const title = textItem(prompt, "Allow Microphone");
        compareColor(title.color, "black");
        compare(title.font.pixelSize, TypeScale.body);
        compare(title.font.weight, Font.Bold);
        compare(button(prompt).height, title.implicitHeight + 20);
        compare(title.mapToItem(button(prompt), 0, 0).y, 10);
    }

    function test_a_denied_microphone_opens_the_settings() {
        tuner.permission = "denied";
        mouseClick(button(make(subject)));
        compare(tuner.opened.length, 1);
        compare(tuner.requests, 0);
    }

    function test_in_every_other_case_the_button_starts_listening_data() {
        return [
            {
                tag: "undetermined",
                requests: 1,
                listening: false
            },
            {
                tag: "granted",
                requests: 0,
                listening: true
            },
            {
                tag: "unknown",
                requests: 0,
                listening: false
            }
        ];
    }

    function test_in_every_other_case_the_button_starts_listening(row) {
        tuner.permission = row.tag;
        mouseClick(button(make(subject)));
        compare(tuner.opened.length, 0);
        compare(tuner.requests, row.requests);
        compare(tuner.listening, row.listening);
    }

    function test_a_request_without_an_answer_is_made_again() {
        tuner.permission = "undetermined";
        tuner.start();
        compare(tuner.requests, 1);
        mouseClick(button(make(subject)));
        compare(tuner.requests, 2);
    }

    function test_the_button_works_from_the_keyboard() {
        const allow = button(make(subject));
        allow.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(tuner.listening);
    }
}
