import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "QuickPitchChip"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner

            QuickPitchChip {
                modelData: 432
            }
        }
    }

    function chip() {
        return make(subject).children[0];
    }

    function test_shows_its_number_in_a_capsule() {
        const quick = chip();
        const number = textItem(quick, "432");
        compare(number.font.pixelSize, TypeScale.caption);
        compare(number.font.weight, Font.DemiBold);
        verify(groundOf(quick) instanceof Capsule);
        compare(quick.width, number.implicitWidth + 20);
        compare(quick.height, number.implicitHeight + 12);
    }

    function test_is_plain_while_another_pitch_is_chosen() {
        const quick = chip();
        verify(!quick.selected);
        compareColor(textItem(quick, "432").color, "white");
        compareColor(groundOf(quick).color, white(0.06));
    }

    function test_is_gold_while_its_pitch_is_chosen_also_by_rounding() {
        const quick = chip();
        tuner.a4 = 431.6;
        verify(quick.selected);
        compareColor(textItem(quick, "432").color, TunerTheme.gold);
        compareColor(groundOf(quick).color, faded(TunerTheme.gold, 0.22));
        tuner.a4 = 431.4;
        verify(!quick.selected);
    }

    function test_a_tap_chooses_its_pitch() {
        const quick = chip();
        mouseClick(quick);
        compare(tuner.a4, 432);
        verify(quick.selected);
    }

    function test_works_from_the_keyboard() {
        const quick = chip();
        quick.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(tuner.a4, 432);
    }

    function test_tells_a_screen_reader_whether_it_is_chosen() {
        const quick = chip();
        compare(quick.Accessible.role, Accessible.RadioButton);
        compare(quick.Accessible.name, "432 Hz");
        verify(!quick.Accessible.checked);
        quick.Accessible.toggleAction();
        compare(tuner.a4, 432);
        verify(quick.Accessible.checked);
    }
}
