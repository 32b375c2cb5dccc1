import QtQuick
import Corvane

// What is heard, before it is matched to a string.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: frequency.implicitHeight

    Text {
        id: frequency

        text: root.tuner.frequencyText
        color: "white"
        font.pixelSize: 15
        font.weight: Font.Medium

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Frequency"
    }

    Text {
        anchors.right: parent.right
        anchors.baseline: frequency.baseline
        visible: text !== ""
        text: root.tuner.hearingText
        color: TunerTheme.muted
        font.pixelSize: 12

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Heard note"
    }
}
