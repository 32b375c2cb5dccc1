import QtQuick
import Corvane

// Plain text that a screen reader reads as it stands.
Text {
    // Whole, because versions of Qt centre fractions differently.
    width: Math.ceil(implicitWidth)
    textFormat: Text.PlainText
    // Said, not guessed: an empty text would ask for the direction of the keyboard, which is none of
    // ours, and Qt 6.4 crashes where Wayland has no keyboard.
    horizontalAlignment: Text.AlignLeft
    color: "white"
    font.pixelSize: TypeScale.body

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
