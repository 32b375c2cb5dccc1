// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

Window {
    id: root

    required property TunerModel tuner
    property real textZoom: 1 // the user's text scale
    // Scales the whole screen, as far as its minimum size still fits.
    readonly property real zoom: Math.max(1, Math.min(textZoom, width / minimumWidth, height / minimumHeight))

    title: "Corvane"
    color: TunerTheme.bg
    width: 480 * textZoom
    height: (860 + menuBar.height) * textZoom
    minimumWidth: 420
    minimumHeight: 680 + menuBar.height

    Item {
        width: root.width / root.zoom
        height: root.height / root.zoom
        scale: root.zoom
        transformOrigin: Item.TopLeft

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
}
