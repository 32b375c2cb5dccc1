// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The program's name, and what it is tuning.
Column {
    id: root

    required property TunerModel tuner

    spacing: 2

    Label {
        text: "Corvane"
        font.pixelSize: TypeScale.title2
        font.weight: Font.Bold

        Accessible.role: Accessible.Heading
    }

    Label {
        width: root.width
        text: root.tuner.subtitle
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }
}
