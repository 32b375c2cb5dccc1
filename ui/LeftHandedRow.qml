import QtQuick
import QtQuick.Templates as T
import Corvane

// Over the tuning: what the list is, and the order of the strings.
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

    T.Switch {
        id: handed

        anchors.right: title.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 34
        implicitHeight: 20
        checked: root.tuner.leftHanded
        onToggled: root.tuner.leftHanded = checked

        Accessible.name: "Left-handed string order"
        Accessible.onPressAction: root.tuner.leftHanded = !root.tuner.leftHanded
        Accessible.onToggleAction: root.tuner.leftHanded = !root.tuner.leftHanded

        indicator: Capsule {
            width: handed.width
            height: handed.height
            color: handed.checked ? TunerTheme.gold : Qt.rgba(1, 1, 1, handed.hovered ? 0.22 : 0.16)

            Capsule {
                x: handed.checked ? parent.width - width - 2 : 2
                y: 2
                width: parent.height - 4
                height: width
                color: "white"
            }

            FocusRing {
                control: parent
                radius: 13
                visible: handed.visualFocus
            }
        }
    }

    Label {
        id: title

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: "Left-handed"
        font.pixelSize: TypeScale.caption
    }
}
