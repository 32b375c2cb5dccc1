import QtQuick
import Corvane

// One half of a stepper; goes on stepping while it is held.
PlainButton {
    id: root

    required property int kind
    required property string name

    autoRepeat: true
    focusPolicy: Qt.NoFocus

    Accessible.role: Accessible.Button
    Accessible.name: name

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            width: 14
            height: width
            kind: root.kind
            color: Qt.rgba(1, 1, 1, root.enabled ? 1 : 0.3)
        }
    }

    background: ContinuousRectangle {
        radius: 8
        color: Qt.rgba(1, 1, 1, root.down ? 0.14 : root.hovered ? 0.06 : 0)
    }
}
