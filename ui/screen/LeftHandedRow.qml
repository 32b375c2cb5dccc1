// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Above the tuning: its heading and the left-handed switch.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: 20

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: root.tuner.isPiano ? "Mode" : "Tuning"
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption
        font.weight: Font.DemiBold
    }

    PlainButton {
        id: handed

        readonly property bool checked: root.tuner.leftHanded

        anchors.right: parent.right
        implicitWidth: track.width + 8 + title.width
        implicitHeight: 20
        onClicked: root.tuner.leftHanded = !checked

        Accessible.role: Accessible.CheckBox
        Accessible.name: "Left-handed string order"
        Accessible.checkable: true
        Accessible.checked: checked
        Accessible.onToggleAction: press()

        Capsule {
            id: track

            width: 34
            height: parent.height
            color: Qt.tint(handed.checked ? TunerTheme.gold : Shades.off, handed.light)

            Capsule {
                property real at: handed.checked ? 1 : 0

                x: 2 + at * (parent.width - width - 4)
                y: 2
                width: parent.height - 4
                height: width
                // White has too little contrast on gold.
                color: handed.checked ? TunerTheme.bg : "white"

                Behavior on at {
                    NumberAnimation {
                        duration: 120
                        easing.type: Easing.OutQuad
                    }
                }
            }
        }

        FocusRing {
            control: track
            radius: 13
            visible: handed.visualFocus
        }

        Label {
            id: title

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: "Left-handed"
            font.pixelSize: TypeScale.caption
        }
    }
}
