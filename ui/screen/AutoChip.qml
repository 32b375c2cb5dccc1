// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Selects automatic choice of the string.
Chip {
    id: root

    selected: !(row?.tuner.locked ?? false)
    fill: selected ? Shades.chosen : TunerTheme.card
    onClicked: row.tuner.releaseLock()

    Accessible.name: label.text
    Accessible.description: inWords(selected ? "on" : "")

    Label {
        id: label

        anchors.centerIn: parent
        width: parent.width - 2 * 4 // clear of the outline
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 8
        horizontalAlignment: Text.AlignHCenter
        text: "Auto"
        color: root.selected ? TunerTheme.gold : "white"
        font.pixelSize: TypeScale.subheadline
        font.weight: Font.DemiBold

        Accessible.ignored: true
    }
}
