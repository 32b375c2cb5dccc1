// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Selection"

    function tuningMenu() {
        return showSized("screen/TuningMenu", {
                width: 364
            });
    }

    function openList(menu) {
        mouseClick(buttonOf(menu, tuner.tuningName));
        return listOf(only(menu, PullDownMenu));
    }

    function test_a_click_chooses_the_instrument_and_another_one_changes_nothing() {
        const picker = show("screen/InstrumentPicker", {
                width: 364
            });
        compare(texts(picker), ["Instrument", "Guitar", "Bass", "Piano"]);
        const checked = () => all(picker, InstrumentSegment).map(each => each.checked);
        for (const [index, name] of [[2, "Piano"], [1, "Bass"], [0, "Guitar"], [0, "Guitar"]]) {
            mouseClick(buttonOf(picker, name));
            compare(tuner.instrument, index);
            compare(checked(), [0, 1, 2].map(each => each === index));
        }
        tuner.instrument = 1;
        compare(checked(), [false, true, false]);
    }

    function test_choosing_a_tuning_from_the_menu_returns_to_automatic_string_choice() {
        const menu = tuningMenu();
        tuner.toggleLock(2);
        mouseClick(entryOf(openList(menu), "Drop D"));
        compare(tuner.tuningID, "g6-dropd");
        verify(!tuner.locked);
        compare(texts(menu), ["Tuning", "Left-handed", "Drop D", "D A D G B E"]);
    }

    function test_the_list_opens_at_the_current_tuning_which_alone_has_a_checkmark() {
        tuner.chooseTuning("g8-drope");
        const list = openList(tuningMenu());
        compare(list.currentItem.title, "8-string drop E");
        verifyInside(list.currentItem, list);
        const marked = all(list, MenuEntry).filter(each => only(each, Symbol).visible);
        compare(marked.map(each => each.title), ["8-string drop E"]);
    }

    function test_list_and_face_follow_the_instrument_and_the_piano_shows_mode() {
        const menu = tuningMenu();
        tuner.instrument = 1;
        compare(openList(menu).count, 9);
        tuner.instrument = 2;
        compare(texts(menu), ["Mode", "Left-handed", "Chromatic", tuner.tuningDetail]);
    }

    function test_the_piano_has_no_string_row_and_every_other_instrument_has_one() {
        const strings = only(showSized("screen/ControlsCard"), StringRow);
        const rows = [0, 2, 1].map(instrument => {
                tuner.instrument = instrument;
                return strings.visible;
            });
        compare(rows, [true, false, true]);
    }

    function test_the_subtitle_is_the_detail_of_the_tuning_and_on_the_piano_its_own() {
        const header = show("screen/Header");
        compare(texts(header), ["Corvane", "E A D G B E"]);
        tuner.chooseTuning("g6-dropd");
        compare(texts(header), ["Corvane", "D A D G B E"]);
        tuner.instrument = 2;
        compare(texts(header), ["Corvane", "Piano chromatic"]);
    }

    function test_the_subtitle_wraps_to_at_most_two_lines() {
        tuner.chooseTuning("g12-standard");
        const header = show("screen/Header", {
                width: 110
            });
        const subtitle = textItem(header, tuner.tuningDetail);
        compare(subtitle.lineCount, 2);
        verify(!subtitle.truncated);
        header.width = 50;
        tryCompare(subtitle, "truncated", true, limit);
        compare(subtitle.lineCount, 2);
    }
}
