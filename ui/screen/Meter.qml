// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A needle on a bar that spans some cents either side of its centre.
Column {
    id: root

    required property TunerModel tuner
    required property string title
    required property real span // cents
    required property real bar // thickness
    property string words // what it shows, for assistive technology

    spacing: 4

    Item {
        width: root.width
        height: Math.max(title.height, scaleLabel.height)

        Label {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption
            font.weight: Font.DemiBold
        }

        Label {
            id: scaleLabel

            anchors.right: parent.right
            anchors.baseline: title.baseline
            text: root.tuner.scaleText(root.span)
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2

            Accessible.ignored: true
        }
    }

    Item {
        id: track

        width: root.width
        height: root.bar

        Accessible.role: Accessible.ProgressBar
        Accessible.name: root.title
        Accessible.description: root.words

        Capsule {
            anchors.fill: parent
            color: Shades.track
        }

        Capsule {
            x: (track.width - width) / 2
            width: Math.min(track.width * 5 / root.span, track.width)
            height: parent.height
            color: Qt.alpha(TunerTheme.green, 0.35)
        }

        Needle {
            track: track.width
            span: root.span
            cents: root.tuner.heard ? root.tuner.cents : 0
            width: root.bar
            height: root.bar
            radius: root.bar / 2
            color: root.tuner.needleColor
        }
    }
}
