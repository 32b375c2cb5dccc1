// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The note, its deviation and the verdict.
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
            words: root.tuner.speech.announcement

            Accessible.role: Accessible.Notification
            Accessible.name: words
            Accessible.ignored: words === ""
        }

        Row {
            id: row

            // Equal space above and below the letter.
            readonly property real above: root.metrics.gap + note.baselineOffset - sign.capitals
            readonly property real below: note.height - note.baselineOffset + root.spacing + cents.baselineOffset - 0.7 * cents.font.pixelSize

            anchors.horizontalCenter: parent.horizontalCenter
            y: Math.round((below - above) / 2)
            spacing: 4

            // Shrinks to half before it is cut off.
            readonly property real room: root.width - (octave.visible ? octave.width + spacing : 0) - (accidental.visible ? spacing : 0)
            readonly property real wish: ofNote.advanceWidth(note.text) + (accidental.visible ? ofNote.font.pixelSize * accidental.breadth : 0)
            readonly property real shrinking: Math.max(0.5, Math.min(1, room / wish))

            FontMetrics {
                id: ofNote

                font.family: TypeScale.rounded
                font.weight: Font.Bold
                font.pixelSize: Math.round(root.metrics.note)
            }

            Label {
                id: note

                text: root.tuner.noteLabel.charAt(0)
                color: root.tuner.needleColor
                font.family: TypeScale.rounded
                font.weight: Font.Bold
                font.pixelSize: row.shrinking < 1 ? Math.floor(root.metrics.note * row.shrinking) : ofNote.font.pixelSize

                Accessible.name: root.tuner.noteLabel
                Accessible.description: "Note"
            }

            // Few rounded fonts have these symbols.
            Item {
                id: accidental

                readonly property real breadth: 0.66

                visible: root.tuner.noteLabel.length > 1
                width: Math.ceil(note.font.pixelSize * breadth)
                height: note.height

                Symbol {
                    id: sign

                    readonly property real capitals: 0.7 * note.font.pixelSize

                    // With strokes as wide as the letter's.
                    width: note.font.pixelSize * 1.05
                    height: width
                    x: Math.round((parent.width - width) / 2)
                    y: Math.round(note.baselineOffset - (capitals + height) / 2)
                    kind: root.tuner.noteLabel.endsWith("♯") ? Symbol.Sharp : Symbol.Flat
                    color: root.tuner.needleColor
                }
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
        id: cents

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
