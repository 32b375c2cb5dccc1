import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "MenuRow"

    Component {
        id: subject

        MenuList {
            entries: test.tuner.tunings
            width: 300
            height: 1000
        }
    }

    function row(list, title) {
        return all(list, MenuRow).filter(each => each.title === title)[0];
    }

    function test_stands_under_a_heading_where_a_section_begins() {
        const list = make(subject);
        compare(texts(row(list, "Standard")), ["6-string", "Standard"]);
        compare(texts(row(list, "Drop D")), ["Drop D"]);
        const entry = entryOf(list, "Standard");
        compare(entry.y + entry.height, row(list, "Standard").height);
        compare(row(list, "Drop D").height, entry.height);
    }

    function test_knows_its_heading_from_its_entry() {
        const first = row(make(subject), "Standard");
        verify(!first.isEntryAt(5));
        verify(first.isEntryAt(first.height - 5));
    }
}
