import QtQuick
import Corvane

// Guitar, bass or piano: one segment each.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: 28

    Label {
        id: title

        anchors.verticalCenter: parent.verticalCenter
        text: "Instrument"
    }

    ContinuousRectangle {
        id: track

        anchors.left: title.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        height: parent.height
        radius: 8
        color: Shades.track
    }

    TunerRow {
        anchors.fill: track
        anchors.margins: 2
        tuner: root.tuner
        itemWidth: width / root.tuner.instruments.length

        Repeater {
            model: root.tuner.instruments

            InstrumentSegment {}
        }
    }
}
