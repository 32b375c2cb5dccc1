import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "TunerRow"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner
            itemWidth: 30

            Repeater {
                model: 2

                Item {
                    readonly property TunerRow row: parent as TunerRow

                    width: row?.itemWidth ?? 0
                    height: 10
                }
            }
        }
    }

    function test_what_is_repeated_in_it_finds_the_tuner_and_its_size() {
        const row = make(subject);
        compare(row.children[0].row.tuner, tuner);
        compare(row.children[0].width, 30);
        compare(row.children[1].x, 30);
    }
}
