// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The current tuning; opens the list of the instrument's tunings.
Column {
    id: root

    required property TunerModel tuner
    required property fit metrics

    spacing: metrics.compact ? 6 : 8

    LeftHandedRow {
        width: root.width
        tuner: root.tuner
    }

    PlainButton {
        id: face

        readonly property real padding: root.metrics.compact ? 10 : 12

        width: root.width
        implicitHeight: texts.implicitHeight + 2 * padding

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: root.tuner.tuningName
        Accessible.description: root.tuner.tuningDetail

        ContinuousRectangle {
            anchors.fill: parent
            radius: 14
            borderWidth: 1
            borderColor: Shades.outline
            color: Qt.tint(TunerTheme.card, menu.opened ? Qt.rgba(1, 1, 1, 0.12) : face.light)
        }

        FocusRing {
            control: face
            radius: 17
            visible: face.visualFocus
        }

        TuningFace {
            id: texts

            anchors.fill: parent
            anchors.margins: face.padding
            tuner: root.tuner
        }

        PullDownMenu {
            id: menu

            control: face
            width: 300
            entries: root.tuner.tunings
            onPicked: id => root.tuner.chooseTuning(id)
        }
    }
}
