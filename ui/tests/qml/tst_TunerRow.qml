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

    Component {
        id: buttons

        TunerRow {
            tuner: test.tuner

            Repeater {
                model: 3

                PlainButton {
                    width: 10
                    height: 10
                }
            }
        }
    }

    function test_the_arrow_keys_go_from_button_to_button_and_stop_at_the_ends() {
        const row = make(buttons);
        make(buttons);
        const places = [];
        row.children[0].forceActiveFocus(Qt.TabFocusReason);
        for (const key of [Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Left, Qt.Key_Home, Qt.Key_Left, Qt.Key_End]) {
            keyClick(key);
            places.push([0, 1, 2].findIndex(index => row.children[index].visualFocus));
        }
        compare(places, [1, 2, 2, 1, 0, 0, 2]);
    }

    function test_what_is_repeated_in_it_finds_the_tuner_and_its_size() {
        const row = make(subject);
        compare(row.children[0].row.tuner, tuner);
        compare(row.children[0].width, 30);
        compare(row.children[1].x, 30);
    }
}
