// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Plain text, its own accessible name.
Text {
    // Whole points: Qt versions centre fractions differently.
    width: Math.ceil(implicitWidth)
    textFormat: Text.PlainText
    // Explicit, because Qt 6.4 asks the keyboard for the direction of an empty text, and crashes if
    // Wayland has no keyboard.
    horizontalAlignment: Text.AlignLeft
    color: "white"
    font.pixelSize: TypeScale.body

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
