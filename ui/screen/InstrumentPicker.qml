// SPDX-License-Identifier: MIT
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
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption
        font.weight: Font.DemiBold
    }

    ContinuousRectangle {
        id: track

        anchors.left: title.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        height: parent.height
        radius: 8
        color: Shades.track

        // Slides to the chosen segment, on whole points like the segments.
        ContinuousRectangle {
            property real at: root.tuner.instrument
            readonly property real start: at * row.itemWidth

            x: 2 + Math.round(start)
            y: 2
            width: Math.round(start + row.itemWidth) - Math.round(start)
            height: row.height
            radius: 6
            color: Shades.raised

            // Only for a choice, not for a change of layout.
            Behavior on at {
                NumberAnimation {
                    duration: 120
                    easing.type: Easing.OutQuad
                }
            }
        }
    }

    TunerRow {
        id: row

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
