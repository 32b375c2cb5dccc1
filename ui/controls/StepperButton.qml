// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// One half of a stepper; repeats while held.
PlainButton {
    id: root

    required property int kind
    required property string name

    autoRepeat: true
    activeFocusOnTab: false

    Accessible.role: Accessible.Button
    Accessible.name: name

    ContinuousRectangle {
        anchors.fill: parent
        radius: 8
        color: root.light
    }

    Symbol {
        anchors.centerIn: parent
        width: 14
        height: width
        kind: root.kind
        color: root.enabled ? "white" : Shades.unavailable
    }
}
