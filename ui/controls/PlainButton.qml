// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A button that draws nothing; screen readers can press it.
Pressable {
    // The overlay on the background while pressed or hovered.
    readonly property color light: Qt.rgba(1, 1, 1, down ? 0.12 : hovered ? 0.06 : 0)

    Accessible.onPressAction: press()
}
