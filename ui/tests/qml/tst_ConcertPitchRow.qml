import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "ConcertPitchRow"

    Component {
        id: subject

        ConcertPitchRow {
            width: 364
            tuner: test.tuner
        }
    }

    function face(row) {
        return buttonOf(row, tuner.concertPitchTitle);
    }

    function test_shows_a4_rounded_and_the_name_of_the_pitch_data() {
        return [
            {
                tag: "440",
                a4: 440,
                texts: ["A4  440", "440  Modern"]
            },
            {
                tag: "431.6 is the plain number 432",
                a4: 431.6,
                texts: ["A4  432", "432"]
            },
            {
                tag: "441 is custom",
                a4: 441,
                texts: ["A4  441", "Custom"]
            }
        ];
    }

    function test_shows_a4_rounded_and_the_name_of_the_pitch(row) {
        const pitch = make(subject);
        tuner.a4 = row.a4;
        compare(texts(pitch), row.texts);
    }

    function test_its_types() {
        const row = make(subject);
        const number = textItem(row, "A4  440");
        verify(number instanceof FixedDigits);
        compare(number.font.pixelSize, TypeScale.body);
        compare(number.font.weight, Font.DemiBold);
        const title = textItem(row, "440  Modern");
        compare(title.font.pixelSize, TypeScale.caption);
        compare(title.font.weight, Font.DemiBold);
    }

    function test_number_menu_and_stepper_stand_side_by_side() {
        const row = make(subject);
        const number = textItem(row, "A4  440");
        const stepper = all(row, Stepper)[0];
        compare(number.x, 0);
        verify(number.x + number.width < face(row).x);
        verify(face(row).x + face(row).width <= stepper.x);
        compare(stepper.x + stepper.width, 364);
    }

    function test_the_menu_lists_older_pitches_then_modern_ones() {
        const list = open(menuOf(make(subject)));
        compare(menuTexts(list), ["Older pitches", "377  Low historical", "392  French Baroque", "415  Baroque", "422  Handel, Mozart era", "430  Classical", "432", "435  French 1859", "Modern", "440  Modern", "442  Orchestra", "466  High choir", "560  High historical"]);
    }

    function test_choosing_a_pitch_sets_a4() {
        const row = make(subject);
        mouseClick(face(row));
        mouseClick(entryOf(listOf(menuOf(row)), "415  Baroque"));
        compare(tuner.a4, 415);
        compare(texts(row), ["A4  415", "415  Baroque"]);
    }

    function test_the_stepper_goes_from_377_to_560() {
        const stepper = all(make(subject), Stepper)[0];
        compare(stepper.minimumValue, 377);
        compare(stepper.maximumValue, 560);
        mouseClick(buttonOf(stepper, "Raise"));
        compare(tuner.a4, 441);
        tuner.a4 = 560;
        mouseClick(buttonOf(stepper, "Raise"));
        compare(tuner.a4, 560);
        tuner.a4 = 377;
        mouseClick(buttonOf(stepper, "Lower"));
        compare(tuner.a4, 377);
    }

    function test_a_screen_reader_can_read_it() {
        const row = make(subject);
        const number = textItem(row, "A4  440");
        compare(number.Accessible.role, Accessible.StaticText);
        compare(number.Accessible.name, "A4  440");
        compare(face(row).Accessible.role, Accessible.ButtonMenu);
        compare(face(row).Accessible.description, "Concert pitch presets");
    }
}
