import QtQuick
import Corvane

// A square button of the string row.
PlainButton {
    id: root

    readonly property TunerRow row: parent as TunerRow
    required property bool selected
    required property color fill

    // For assistive technology, while any listens.
    function inWords(...states): string {
        return row?.tuner.spoken.active ? states.filter(state => state !== "").join(", ") : "";
    }

    width: row?.itemWidth ?? 0
    height: width
    reach: (row?.spacing ?? 0) / 2

    // Of a push button no screen reader says whether it is checked.
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: press()

    ContinuousRectangle {
        anchors.fill: parent
        radius: 12
        color: Qt.tint(root.fill, root.light)
        borderWidth: root.selected ? 2 : 1
        borderColor: root.selected ? TunerTheme.gold : Shades.outline
    }

    FocusRing {
        control: root
        radius: 14
        distance: 0
        visible: root.visualFocus
    }
}
