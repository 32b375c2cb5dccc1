import QtQuick
import Corvane

// A square button of the string row.
PlainButton {
    id: root

    readonly property TunerRow row: parent as TunerRow
    required property bool selected
    required property color fill

    checked: selected
    width: row?.itemWidth ?? 0
    height: width

    background: ContinuousRectangle {
        radius: 12
        color: root.fill
        borderWidth: root.selected ? 2 : 1
        borderColor: root.selected ? TunerTheme.gold : Qt.rgba(1, 1, 1, root.down ? 0.3 : root.hovered ? 0.18 : 0.08)

        FocusRing {
            control: parent
            radius: 14
            distance: 0
            visible: root.visualFocus
        }
    }
}
