// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// What assistive technology can read and do on the whole screen.
ScreenTest {
    id: test

    name: "ScreenReader"

    readonly property var roles: [
        "Heading", "StaticText", "AlertMessage", "ProgressBar", "MenuBar", "ButtonMenu", "Button",
        "RadioButton", "CheckBox", "SpinBox", "Link"
    ]

    function cleanup() {
        probe.setScreenReader(false);
    }

    function screen() {
        return showWindow().contentItem;
    }

    function inWords(item) {
        const role = roles.find(each => Accessible[each] === item.Accessible.role);
        const description = item.Accessible.description;
        const inBrackets = description === "" ? "" : ` (${description})`;
        const state = item.Accessible.checked ? ", checked" : "";
        return `${role}: ${item.Accessible.name}${inBrackets}${state}`;
    }

    function read(view) {
        const items = all(view, Item).filter(each => each.visible && !each.Accessible.ignored);
        return items.filter(each => each.Accessible.role !== Accessible.NoRole).map(inWords);
    }

    function test_everything_on_the_screen_has_a_role_and_a_name() {
        tuner.loseMicrophone();
        tuner.toggleLock(1);
        hearCents(3);
        const view = screen();
        const hint = texts(view).find(each => each.startsWith("A=440"));
        compare(read(view), [
            "MenuBar: ", "ButtonMenu: Help (Alt+H)", "Heading: Corvane",
            "StaticText: E A D G B E", "StaticText: A (Note)", "StaticText: 2 (Octave)",
            "StaticText: +3.0 ¢ (Cents)", "StaticText: In tune (Status)", "StaticText: Cents",
            "ProgressBar: Cents", "StaticText: Fine", "ProgressBar: Fine", "StaticText: Level",
            "ProgressBar: Level", "StaticText: 110.2 Hz (Frequency)",
            "StaticText: Hearing A2 (Heard note)", "StaticText: Instrument",
            "RadioButton: Guitar, checked", "RadioButton: Bass", "RadioButton: Piano",
            "StaticText: Tuning", "CheckBox: Left-handed string order", "StaticText: Left-handed",
            "ButtonMenu: Standard (E A D G B E)", "RadioButton: Auto", "RadioButton: E2",
            "RadioButton: A2, checked", "RadioButton: D3", "RadioButton: G3", "RadioButton: B3",
            "RadioButton: E4", "StaticText: A4  440 (Concert pitch)",
            "ButtonMenu: 440  Modern (Concert pitch presets)", "SpinBox: Concert pitch in hertz",
            "Button: Lower", "Button: Raise", "RadioButton: 415 Hz", "RadioButton: 432 Hz",
            "RadioButton: 440 Hz, checked", "RadioButton: 466 Hz", "Button: Play reference",
            `StaticText: ${hint}`,
            "AlertMessage: No microphone is available. (Microphone problem)",
            "Button: Allow Microphone", `StaticText: Version ${tuner.appVersion}`,
            "Link: Privacy Policy"
        ]);
    }

    function test_the_chips_say_what_they_are_doing_while_a_screen_reader_listens() {
        const row = showSized("screen/StringRow");
        const words = () => ["Auto", "A2"].map(name => buttonOf(row, name).Accessible.description);
        hearCents(3);
        compare(words(), ["", ""]);
        probe.setScreenReader(true);
        compare(words(), ["on", "being heard"]);
        tuner.toggleLock(1);
        compare(words(), ["", "locked, being heard"]);
        tuner.hearNothing();
        compare(words(), ["", "locked"]);
    }

    function test_the_meters_say_what_they_show_while_a_screen_reader_listens() {
        const card = showSized("screen/Meters");
        probe.setScreenReader(true);
        hearCents(20);
        const bars = () => read(card).filter(each => each.startsWith("ProgressBar")).join("\n");
        const cents = "ProgressBar: Cents (A2, 20 cents sharp)";
        const fine = "ProgressBar: Fine (A2, more than 10 cents sharp)";
        eventually(() => bars() === `${cents}\n${fine}\nProgressBar: Level (60 percent)`);
    }

    function test_the_notification_exists_only_while_it_has_a_text() {
        const region = only(screen(), LiveRegion);
        compare(region.Accessible.role, Accessible.Notification);
        verify(region.Accessible.ignored);
        probe.setScreenReader(true);
        hearCents(20);
        eventually(() => region.Accessible.name !== "");
        verify(!region.Accessible.ignored);
        probe.setScreenReader(false);
        verify(region.Accessible.ignored);
    }

    function test_a_screen_reader_toggles_every_kind_of_choice_data() {
        return table(["name"], [["Bass"], ["Left-handed string order"], ["A2"], ["415 Hz"]]);
    }

    function test_a_screen_reader_toggles_every_kind_of_choice(row) {
        const choice = buttonOf(screen(), row.name);
        verify(choice.Accessible.checkable);
        choice.Accessible.toggleAction();
        verify(choice.Accessible.checked);
    }

    function test_a_screen_reader_steps_the_concert_pitch() {
        const stepper = only(showSized("screen/ReferenceRow"), Stepper);
        stepper.Accessible.increaseAction();
        compare(tuner.a4, 441);
        stepper.Accessible.decreaseAction();
        stepper.Accessible.decreaseAction();
        compare(tuner.a4, 439);
    }
}
