// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// One string: its name over its octave. A press locks it, another releases it.
Chip {
    id: root

    required property int stringIndex
    required property string label
    required property int octave
    required property bool hearing

    onClicked: row.tuner.toggleLock(stringIndex)

    Accessible.name: label + octave
    Accessible.description: inWords(selected ? "locked" : "", hearing ? "being heard" : "")

    Column {
        // On whole points: Qt 6.11 centres on device pixels, earlier versions on points.
        x: Math.round((parent.width - width) / 2)
        y: Math.round((parent.height - height) / 2)
        spacing: 2

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.label
            font.pixelSize: TypeScale.headline
            font.weight: Font.DemiBold

            Accessible.ignored: true
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.octave
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2

            Accessible.ignored: true
        }
    }
}
