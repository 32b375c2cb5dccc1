import QtQuick
import Corvane

Window {
    id: root

    required property TunerModel tuner

    title: "Corvane"
    color: TunerTheme.bg
    width: 480
    height: 860 + menuBar.height
    minimumWidth: 420
    minimumHeight: 680 + menuBar.height

    HelpMenuBar {
        id: menuBar

        width: parent.width
        tuner: root.tuner
    }

    TunerView {
        anchors.fill: parent
        anchors.topMargin: menuBar.height
        tuner: root.tuner
    }
}
