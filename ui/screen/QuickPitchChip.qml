// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// One of the quick concert pitches.
PlainButton {
    id: root

    required property int modelData
    readonly property TunerRow row: parent as TunerRow
    readonly property real gap: row?.gap ?? 0
    readonly property bool selected: row?.tuner.wholeHertz === modelData
    readonly property color ground: selected ? Shades.chosen : Shades.capsule

    implicitWidth: number.width + 20 + gap
    implicitHeight: number.implicitHeight + 12
    onClicked: row.tuner.a4 = modelData

    Accessible.role: Accessible.RadioButton
    Accessible.name: modelData + " Hz"
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: press()

    Capsule {
        id: face

        x: root.gap / 2
        width: root.width - root.gap
        height: root.height
        color: Qt.tint(root.ground, root.light)
    }

    FocusRing {
        control: face
        radius: height / 2
        visible: root.visualFocus
    }

    Label {
        id: number

        anchors.centerIn: parent
        text: root.modelData
        color: root.selected ? TunerTheme.gold : "white"
        font.pixelSize: TypeScale.caption
        font.weight: Font.DemiBold

        Accessible.ignored: true
    }
}
