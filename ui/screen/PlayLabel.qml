// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A loudspeaker symbol and the action's name.
Row {
    id: root

    required property string text

    spacing: 6

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: width
        kind: Symbol.SpeakerWave
        color: "black"
    }

    Label {
        text: root.text
        color: "black"
        font.weight: Font.DemiBold

        Accessible.ignored: true
    }
}
