// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The frequency of A4, by preset and in steps of one hertz.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: 28

    FixedDigits {
        anchors.verticalCenter: parent.verticalCenter
        text: "A4  " + root.tuner.wholeHertz
        font.pixelSize: TypeScale.body
        font.weight: Font.DemiBold

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Concert pitch"
    }

    PlainButton {
        id: face

        anchors.right: stepper.left
        anchors.rightMargin: 10
        height: parent.height
        implicitWidth: title.width + 18

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: root.tuner.concertPitchTitle
        Accessible.description: "Concert pitch presets"

        ContinuousRectangle {
            anchors.fill: parent
            radius: 8
            color: menu.opened ? Shades.held : Qt.tint(Shades.track, face.light)
        }

        FocusRing {
            control: face
            radius: 11
            visible: face.visualFocus
        }

        Row {
            id: title

            x: 10
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: root.tuner.concertPitchTitle
                font.pixelSize: TypeScale.caption
                font.weight: Font.DemiBold

                Accessible.ignored: true
            }

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                width: TypeScale.caption
                height: width
                kind: Symbol.ChevronUpDown
                color: TunerTheme.muted
            }
        }

        PullDownMenu {
            id: menu

            control: face
            width: 220
            alignment: Qt.AlignRight
            entries: root.tuner.concertPitches
            current: root.tuner.wholeHertz
            onPicked: hertz => root.tuner.a4 = Number(hertz)
        }
    }

    Stepper {
        id: stepper

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: parent.height
        minimumValue: 377
        maximumValue: 560
        value: root.tuner.a4
        onStepped: value => root.tuner.a4 = value
    }
}
