// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The background of the two main buttons.
ContinuousRectangle {
    id: root

    required property PlainButton control
    readonly property color pressed: Qt.darker(TunerTheme.gold, 1.15)
    readonly property color hovered: Qt.lighter(TunerTheme.gold, 1.06)

    anchors.fill: control
    radius: 12
    color: control.down ? pressed : control.hovered ? hovered : TunerTheme.gold

    FocusRing {
        control: root
        radius: 15
        visible: root.control.visualFocus
    }
}
