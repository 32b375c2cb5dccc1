import QtQuick
import Corvane

// The note that is heard, how far off it is, and the verdict.
Column {
    id: root

    required property TunerModel tuner
    required property fit metrics

    spacing: 2

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 4

        Text {
            id: note

            text: root.tuner.noteLabel
            color: root.tuner.needleColor
            font.pixelSize: root.metrics.note
            font.weight: Font.Bold

            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.description: "Note"
        }

        Text {
            anchors.baseline: note.baseline
            visible: text !== ""
            text: root.tuner.octaveLabel
            color: root.tuner.needleColor
            opacity: 0.85
            font.pixelSize: root.metrics.note * 0.34
            font.weight: Font.DemiBold

            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.description: "Octave"
        }
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.tuner.centsText
        color: root.tuner.heard ? "white" : TunerTheme.muted
        font.pixelSize: Math.max(root.metrics.note * 0.28, 18)
        font.weight: Font.DemiBold

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Cents"
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.tuner.status
        color: root.tuner.needleColor
        font.pixelSize: 13
        font.weight: Font.DemiBold

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Status"
    }
}
