import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "TuningMenu"
    height: 680

    Component {
        id: subject

        TuningMenu {
            property size area: test.ideal

            width: 364
            tuner: test.tuner
            metrics: test.fitOf(area)
        }
    }

    function face(menu) {
        return buttonOf(menu, tuner.tuningName);
    }

    function test_the_face_stands_below_the_left_handed_row() {
        const menu = make(subject);
        verifyBelow(face(menu), all(menu, LeftHandedRow)[0]);
        compare(face(menu).width, 364);
        compareColor(groundOf(face(menu)).color, TunerTheme.card);
        compare(groundOf(face(menu)).radius, 14);
    }

    function test_the_face_has_more_room_in_a_high_window() {
        const menu = make(subject);
        compare(face(menu).padding, 10);
        compare(face(make(subject, {
                            area: large
                        })).padding, 12);
        compare(face(menu).height, all(menu, TuningFace)[0].implicitHeight + 20);
    }

    function test_a_click_opens_the_list_at_the_current_tuning() {
        tuner.chooseTuning("g8-drope");
        const menu = make(subject);
        mouseClick(face(menu));
        const list = listOf(menuOf(menu));
        compare(list.currentItem.title, "8-string drop E");
        verifyInside(list.currentItem, list);
    }

    function test_choosing_a_tuning_returns_to_automatic_string_choice() {
        const menu = make(subject);
        tuner.toggleLock(2);
        const list = open(menuOf(menu));
        mouseClick(entryOf(list, "Drop D"));
        compare(tuner.tuningID, "g6-dropd");
        verify(!tuner.locked);
        compare(face(menu).Accessible.name, "Drop D");
    }

    function test_the_checkmark_follows_the_tuning() {
        const menu = make(subject);
        tuner.chooseTuning("g6-half");
        const list = open(menuOf(menu));
        verify(entryOf(list, "Half step down").chosen);
        verify(!entryOf(list, "Standard").chosen);
    }

    function test_opens_and_chooses_from_the_keyboard() {
        const menu = make(subject);
        face(menu).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(menuOf(menu).opened);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(tuner.tuningID, "g6-half");
    }

    function test_follows_the_instrument() {
        const menu = make(subject);
        tuner.instrument = 1;
        compare(open(menuOf(menu)).count, 9);
    }

    function test_tells_a_screen_reader_the_tuning() {
        const menu = make(subject);
        compare(face(menu).Accessible.role, Accessible.ButtonMenu);
        compare(face(menu).Accessible.description, "E A D G B E");
    }
}
