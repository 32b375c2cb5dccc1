// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A square button of the string row.
PlainButton {
    id: root

    readonly property TunerRow row: parent as TunerRow
    required property bool selected
    required property color fill

    // For assistive technology only.
    function inWords(...states): string {
        return row?.tuner.speech.active ? states.filter(state => state !== "").join(", ") : "";
    }

    readonly property real gap: row?.gap ?? 0
    default property alias content: face.data

    width: height + gap
    height: row?.itemWidth ?? 0

    // Screen readers announce the checked state of radio buttons, not of push buttons.
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: press()

    // On whole points, because the side of a chip may be fractional and its outline would be blurred.
    ContinuousRectangle {
        id: face

        readonly property real start: root.x + root.gap / 2

        x: Math.round(start) - root.x
        width: Math.round(start + root.height) - Math.round(start)
        height: Math.round(root.height)
        radius: 12
        color: Qt.tint(root.fill, root.light)
        borderWidth: root.selected ? 2 : 1
        borderColor: root.selected ? TunerTheme.gold : Shades.outline
    }

    FocusRing {
        control: face
        radius: 14
        distance: 0
        visible: root.visualFocus
    }
}
