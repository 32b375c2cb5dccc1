import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "LeftHandedRow"

    Component {
        id: subject

        LeftHandedRow {
            width: 364
            tuner: test.tuner
        }
    }

    function switchOf(row) {
        return buttonOf(row, "Left-handed string order");
    }

    function test_is_titled_tuning_and_on_the_piano_mode() {
        const row = make(subject);
        compare(texts(row), ["Tuning", "Left-handed"]);
        tuner.instrument = 2;
        compare(texts(row), ["Mode", "Left-handed"]);
    }

    function test_its_types() {
        const row = make(subject);
        const title = textItem(row, "Tuning");
        compare(title.font.pixelSize, TypeScale.caption);
        compare(title.font.weight, Font.DemiBold);
        compareColor(title.color, TunerTheme.muted);
        compare(textItem(row, "Left-handed").font.pixelSize, TypeScale.caption);
    }

    function test_the_text_follows_the_switch_at_the_end() {
        const row = make(subject);
        const label = textItem(row, "Left-handed");
        compare(label.x + label.width, 364);
        verify(switchOf(row).x + switchOf(row).width <= label.x);
        verify(switchOf(row).x > textItem(row, "Tuning").width);
    }

    function test_the_switch_turns_the_order_and_back() {
        const row = make(subject);
        mouseClick(switchOf(row));
        verify(tuner.leftHanded);
        verify(switchOf(row).checked);
        mouseClick(switchOf(row));
        verify(!tuner.leftHanded);
        verify(!switchOf(row).checked);
    }

    function test_the_switch_follows_the_tuner_also_after_it_was_used() {
        const row = make(subject);
        mouseClick(switchOf(row));
        tuner.leftHanded = false;
        verify(!switchOf(row).checked);
        tuner.leftHanded = true;
        verify(switchOf(row).checked);
    }

    function test_the_switch_works_from_the_keyboard() {
        const row = make(subject);
        switchOf(row).forceActiveFocus(Qt.TabFocusReason);
        verify(all(row, FocusRing)[0].visible);
        keyClick(Qt.Key_Space);
        verify(tuner.leftHanded);
    }

    function test_a_screen_reader_can_turn_the_switch() {
        const row = make(subject);
        switchOf(row).Accessible.pressAction();
        verify(tuner.leftHanded);
        verify(switchOf(row).checked);
        switchOf(row).Accessible.toggleAction();
        verify(!tuner.leftHanded);
        verify(!switchOf(row).checked);
    }

    function test_the_switch_shows_its_state() {
        const row = make(subject);
        const track = all(switchOf(row), Capsule)[0];
        const knob = track.children[0];
        const off = knob.x;
        verify(!Qt.colorEqual(track.color, TunerTheme.gold));
        tuner.leftHanded = true;
        compareColor(track.color, TunerTheme.gold);
        tryVerify(() => knob.x > off);
    }
}
