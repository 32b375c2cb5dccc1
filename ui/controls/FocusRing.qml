import QtQuick
import Corvane

// Shows where the keyboard is: a line around the control it stands in, in a colour that says nothing of
// a note.
ContinuousRectangle {
    required property Item control
    property real distance: 2

    anchors.fill: control
    anchors.margins: -distance - borderWidth
    borderWidth: 2
    borderColor: "white"
}
