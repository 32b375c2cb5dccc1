import QtQuick
import Corvane

// The note that is heard, how far off it is, and the verdict.
Column {
    id: root

    required property TunerModel tuner
    required property fit metrics

    spacing: 2

    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(row.implicitWidth, root.width)
        height: row.implicitHeight

        LiveRegion {
            anchors.fill: parent
            words: root.tuner.spoken.announcement

            Accessible.role: Accessible.Notification
            Accessible.name: words
            Accessible.ignored: words === ""
        }

        Row {
            id: row

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 4

            Label {
                id: note

                width: Math.min(implicitWidth, root.width - (octave.visible ? octave.width + row.spacing : 0))
                text: root.tuner.noteLabel
                color: root.tuner.needleColor
                font.family: TypeScale.rounded
                font.weight: Font.Bold
                font.pixelSize: Math.round(root.metrics.note)
                minimumPixelSize: root.metrics.note / 2
                fontSizeMode: Text.HorizontalFit

                Accessible.description: "Note"
            }

            Label {
                id: octave

                anchors.baseline: note.baseline
                visible: text !== ""
                text: root.tuner.octaveLabel
                color: root.tuner.needleColor
                opacity: 0.85
                font.family: TypeScale.rounded
                font.weight: Font.DemiBold
                font.pixelSize: Math.round(root.metrics.note * 0.34)

                Accessible.description: "Octave"
            }
        }
    }

    FixedDigits {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.tuner.centsText
        color: root.tuner.heard ? "white" : TunerTheme.muted
        font.family: TypeScale.rounded
        font.weight: Font.DemiBold
        font.pixelSize: Math.round(Math.max(root.metrics.note * 0.28, 18))

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Cents"
    }

    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.tuner.status
        color: root.tuner.needleColor
        font.weight: Font.DemiBold

        Accessible.description: "Status"
    }
}
