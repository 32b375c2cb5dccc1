import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "PlayButton"

    Component {
        id: subject

        PlayButton {
            width: 364
            tuner: test.tuner
            compact: true
        }
    }

    function test_says_what_it_does_and_what_it_is_doing() {
        const button = make(subject);
        compare(texts(button), ["Play reference"]);
        mouseClick(button);
        compare(texts(button), ["Playing"]);
        tuner.endTone();
        compare(texts(button), ["Play reference"]);
    }

    function test_plays_the_second_string_unless_one_is_chosen() {
        mouseClick(make(subject));
        compare(tuner.tones, 1);
        // A sine's crossings of zero, interpolated between samples, are off by far less.
        fuzzyCompare(tuner.toneFrequency(), 110, 0.05);
    }

    function test_plays_the_locked_string() {
        tuner.toggleLock(5);
        mouseClick(make(subject));
        fuzzyCompare(tuner.toneFrequency(), 329.628, 0.05);
    }

    function test_plays_a_stretched_concert_pitch() {
        tuner.a4 = 415;
        mouseClick(make(subject));
        fuzzyCompare(tuner.toneFrequency(), 415 / 4, 0.05);
    }

    function test_works_from_the_keyboard() {
        const button = make(subject);
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(tuner.tones, 1);
    }

    function test_is_gold_with_more_room_where_there_is_room() {
        const button = make(subject);
        verify(groundOf(button) instanceof GoldFace);
        const text = textItem(button, "Play reference");
        compare(button.height, text.implicitHeight + 16);
        button.compact = false;
        compare(button.height, text.implicitHeight + 20);
    }

    function test_what_it_says_stands_in_the_middle() {
        const label = all(make(subject), PlayLabel)[0];
        // Centred items are placed on whole points.
        verify(Math.abs(label.x + label.width / 2 - 182) <= 0.5);
    }

    function test_tells_a_screen_reader_what_it_says() {
        const button = make(subject);
        compare(button.Accessible.role, Accessible.Button);
        compare(button.Accessible.name, "Play reference");
        mouseClick(button);
        compare(button.Accessible.name, "Playing");
    }
}
