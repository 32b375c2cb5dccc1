// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A line around the control that has the focus, in a colour that no verdict uses.
ContinuousRectangle {
    required property Item control
    property real distance: 2

    anchors.fill: control
    anchors.margins: -distance - borderWidth
    borderWidth: 2
    borderColor: "white"
}
