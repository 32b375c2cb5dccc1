import QtQuick
import Corvane

// Why nothing is heard, and what to do about it.
Column {
    id: root

    required property TunerModel tuner

    spacing: 8

    Label {
        width: root.width
        text: root.tuner.errorText
        color: TunerTheme.flat
        font.pixelSize: TypeScale.footnote
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap

        Accessible.role: Accessible.AlertMessage
        Accessible.description: "Microphone problem"
    }

    PlainButton {
        id: button

        width: root.width
        text: "Allow Microphone"
        verticalPadding: 10
        implicitHeight: implicitContentHeight + 2 * verticalPadding
        onClicked: root.tuner.allowMicrophone()

        Accessible.role: Accessible.Button
        Accessible.name: text

        contentItem: Label {
            text: button.text
            color: "black"
            font.weight: Font.Bold
            horizontalAlignment: Text.AlignHCenter

            Accessible.ignored: true
        }

        background: GoldFace {
            control: button
        }
    }
}
