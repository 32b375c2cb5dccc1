import QtQuick
import Corvane

ScreenTest {
    name: "MenuSection"

    Component {
        id: subject

        MenuSection {
            title: "6-string"
        }
    }

    function test_is_a_muted_heading() {
        const heading = textItem(make(subject), "6-string");
        compareColor(heading.color, TunerTheme.muted);
        compare(heading.font.weight, Font.DemiBold);
    }

    function test_is_a_heading_to_a_screen_reader() {
        compare(all(make(subject), Label)[0].Accessible.role, Accessible.Heading);
    }

    function test_takes_no_room_without_a_name() {
        const section = make(subject, {
                title: ""
            });
        compare(section.height, 0);
        compare(texts(section), []);
    }
}
