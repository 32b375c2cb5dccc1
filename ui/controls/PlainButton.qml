import QtQuick
import Corvane

// A button without a look of its own, that a screen reader can press too.
Pressable {
    // What lies over the colour of its ground while it is pressed or the mouse is over it.
    readonly property color light: Qt.rgba(1, 1, 1, down ? 0.12 : hovered ? 0.06 : 0)

    Accessible.onPressAction: press()
}
