// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A menu entry; the chosen one has a checkmark.
PlainButton {
    id: root

    required property string title
    required property bool choosable // can be the chosen one
    required property bool chosen
    required property bool highlighted
    required property bool ringed // has the focus, by keyboard
    required property real indent // of the title

    activeFocusOnTab: false
    focus: true

    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.focusable: true
    Accessible.checkable: choosable
    Accessible.checked: chosen

    ContinuousRectangle {
        anchors.fill: parent
        radius: 7
        color: root.down ? Shades.held : root.highlighted ? Shades.highlight : "transparent"
        borderColor: "white"
        borderWidth: root.ringed ? 2 : 0
    }

    Symbol {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 12
        height: width
        visible: root.chosen
        kind: Symbol.Checkmark
        color: "white"
    }

    Label {
        x: root.indent
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - x - 10
        text: root.title
        elide: Text.ElideRight

        Accessible.ignored: true
    }
}
