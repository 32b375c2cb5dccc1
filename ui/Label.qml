import QtQuick
import Corvane

// Plain text that a screen reader reads as it stands.
Text {
    textFormat: Text.PlainText
    color: "white"
    font.pixelSize: TypeScale.body

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
