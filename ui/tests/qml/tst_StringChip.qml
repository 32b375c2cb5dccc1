import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "StringChip"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner
            itemWidth: 41.5

            StringChip {
                stringIndex: 3
                label: "G"
                octave: 3
                selected: test.tuner.locked
                hearing: false
                fill: TunerTheme.card
            }
        }
    }

    function chip() {
        return make(subject).children[0];
    }

    function test_is_a_square_with_the_name_over_the_octave() {
        const string = chip();
        compare(string.width, 41.5);
        compare(string.height, 41.5);
        compare(texts(string), ["G", "3"]);
        const name = textItem(string, "G");
        const octave = textItem(string, "3");
        compare(octave.y - name.y - name.height, 2);
        verifyInside(name, string);
        verifyInside(octave, string);
    }

    function test_its_types() {
        const string = chip();
        const name = textItem(string, "G");
        compare(name.font.pixelSize, TypeScale.headline);
        compareColor(name.color, "white");
        const octave = textItem(string, "3");
        compare(octave.font.pixelSize, TypeScale.caption2);
        compareColor(octave.color, TunerTheme.muted);
    }

    function test_both_texts_fit_into_the_smallest_chip() {
        const row = make(subject, {
                itemWidth: 36
            });
        for (const each of textItems(row.children[0]))
            verifyInside(each, row.children[0]);
    }

    function test_a_tap_locks_and_another_releases() {
        const string = chip();
        mouseClick(string);
        compare(tuner.lockedString, 3);
        compare(groundOf(string).borderWidth, 2);
        compareColor(groundOf(string).borderColor, TunerTheme.gold);
        mouseClick(string);
        verify(!tuner.locked);
        compare(groundOf(string).borderWidth, 1);
    }

    function test_works_from_the_keyboard() {
        const string = chip();
        string.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(tuner.lockedString, 3);
    }

    function test_tells_a_screen_reader_its_note_and_whether_it_is_locked() {
        const string = chip();
        compare(string.Accessible.role, Accessible.RadioButton);
        compare(string.Accessible.name, "G3");
        verify(!string.Accessible.checked);
        tuner.toggleLock(3);
        verify(string.Accessible.checked);
    }
}
