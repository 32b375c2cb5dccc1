// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A padded column on a card background.
Item {
    id: root

    required property fit metrics
    property real spacing: 0
    property real overflow: 0 // of content wider than the card, which grows by it, half on each side
    readonly property real padding: metrics.compact ? 10 : 14
    default property alias content: stack.data

    implicitHeight: stack.implicitHeight + 2 * padding

    ContinuousRectangle {
        anchors.fill: parent
        anchors.leftMargin: -root.overflow / 2
        anchors.rightMargin: -root.overflow / 2
        color: TunerTheme.card
        radius: 16
    }

    // Opaque and of the same color: what changes on it repaints nothing of the ground, whose whole
    // area would be sent to the display.
    Rectangle {
        anchors.fill: stack
        color: TunerTheme.card
    }

    Column {
        id: stack

        x: root.padding - root.overflow / 2
        y: root.padding
        width: root.width - 2 * root.padding + root.overflow
        spacing: root.spacing
    }
}
