import QtQuick
import Corvane

// The menu bar: Help, with the one thing there is to read.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: 28

    Accessible.role: Accessible.MenuBar

    PlainButton {
        id: help

        x: 6
        anchors.verticalCenter: parent.verticalCenter
        text: "Help"
        leftPadding: 8
        rightPadding: 8
        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        height: 22
        onClicked: menu.open()

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: text

        contentItem: Label {
            text: help.text
            verticalAlignment: Text.AlignVCenter

            Accessible.ignored: true
        }

        background: ContinuousRectangle {
            radius: 6
            color: Qt.rgba(1, 1, 1, help.down || menu.visible ? 0.16 : help.hovered ? 0.08 : 0)

            FocusRing {
                control: parent
                radius: 8
                distance: 0
                visible: help.visualFocus
            }
        }

        PullDownMenu {
            id: menu

            implicitWidth: 160
            entries: root.tuner.helpMenu
            onPicked: root.tuner.openPrivacyPolicy()
        }
    }
}
