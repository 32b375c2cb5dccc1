// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The input level.
Column {
    id: root

    required property real signal // 0 to 1
    property string words // what it shows, for assistive technology

    spacing: 4

    Label {
        text: "Level"
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption
        font.weight: Font.DemiBold
    }

    Capsule {
        width: root.width
        height: 6
        color: Shades.track

        Accessible.role: Accessible.ProgressBar
        Accessible.name: "Level"
        Accessible.description: root.words

        Capsule {
            // Rounded, because a change too small for a pixel would still draw a frame.
            width: Math.round(parent.width * root.signal * 256) / 256
            height: parent.height
            color: TunerTheme.gold
        }
    }
}
