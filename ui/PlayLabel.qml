import QtQuick
import Corvane

// A loudspeaker and what pressing does, in the middle.
Item {
    id: root

    required property string text

    implicitHeight: label.implicitHeight

    Row {
        anchors.centerIn: parent
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: width
            kind: Symbol.SpeakerWave
            color: "black"
        }

        Label {
            id: label

            text: root.text
            color: "black"
            font.weight: Font.DemiBold

            Accessible.ignored: true
        }
    }
}
