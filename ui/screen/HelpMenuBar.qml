// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The menu bar: Help with its one entry.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: 28

    Accessible.role: Accessible.MenuBar

    Shortcut {
        sequence: "Alt+H"
        onActivated: menu.open()
    }

    PlainButton {
        id: help

        x: 6
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: title.width + 16
        height: 22

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: title.text
        Accessible.description: "Alt+H"

        ContinuousRectangle {
            anchors.fill: parent
            radius: 6
            color: menu.opened ? Shades.held : help.light
        }

        FocusRing {
            control: help
            radius: 8
            distance: 0
            visible: help.visualFocus
        }

        Label {
            id: title

            anchors.centerIn: parent
            text: "Help"

            Accessible.ignored: true
        }

        PullDownMenu {
            id: menu

            control: help
            width: 160
            entries: root.tuner.helpMenu
            onPicked: root.tuner.openPrivacyPolicy()
        }
    }
}
