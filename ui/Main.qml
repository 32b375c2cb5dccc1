import QtQuick
import Corvane

Window {
    id: root

    required property TunerModel tuner
    readonly property fit metrics: tuner.fit(width, height)

    title: "Corvane"
    color: TunerTheme.bg
    width: 480
    height: 860
    minimumWidth: 420
    minimumHeight: 680

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width, 640) - 2 * root.metrics.side
        spacing: root.metrics.gap

        NoteReadout {
            width: parent.width
            tuner: root.tuner
            metrics: root.metrics
        }

        FrequencyLine {
            width: parent.width
            tuner: root.tuner
        }

        Text {
            width: parent.width
            visible: text !== ""
            text: root.tuner.errorText
            color: TunerTheme.flat
            font.pixelSize: 13
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap

            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.description: "Microphone problem"
        }
    }
}
