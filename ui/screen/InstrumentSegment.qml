// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// One segment of the instrument picker.
PlainButton {
    id: root

    required property int index
    required property string modelData
    readonly property TunerRow row: parent as TunerRow
    readonly property bool checked: row?.tuner.instrument === index

    width: row?.itemWidth ?? 0
    height: row?.height ?? 0
    onClicked: row.tuner.instrument = index

    Accessible.role: Accessible.RadioButton
    Accessible.name: modelData
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: press()

    // On whole points, like a chip.
    ContinuousRectangle {
        id: face

        x: Math.round(root.x) - root.x
        width: Math.round(root.x + root.width) - Math.round(root.x)
        height: root.height
        radius: 6
        color: root.light
    }

    FocusRing {
        control: face
        radius: 8
        distance: 0
        visible: root.visualFocus
    }

    Label {
        anchors.centerIn: face
        text: root.modelData
        font.weight: root.checked ? Font.DemiBold : Font.Normal

        Accessible.ignored: true
    }
}
