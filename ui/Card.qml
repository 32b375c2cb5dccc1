import QtQuick
import Corvane

// A group of regions on a ground of its own: whatever stands in it, stacked and padded.
Item {
    id: root

    required property fit metrics
    property real spacing: 0
    readonly property real padding: metrics.compact ? 10 : 14
    default property alias content: stack.data

    implicitHeight: stack.implicitHeight + 2 * padding

    ContinuousRectangle {
        anchors.fill: parent
        color: TunerTheme.card
        radius: 16
    }

    Column {
        id: stack

        x: root.padding
        y: root.padding
        width: root.width - 2 * root.padding
        spacing: root.spacing
    }
}
