// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The current tuning: its name over its detail, and the pull-down symbol.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: texts.implicitHeight

    Column {
        id: texts

        anchors.left: parent.left
        anchors.right: chevron.left
        anchors.rightMargin: 8
        spacing: 2

        Label {
            width: parent.width
            text: root.tuner.tuningName
            font.weight: Font.DemiBold
            elide: Text.ElideRight

            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: root.tuner.tuningDetail
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption
            wrapMode: Text.WordWrap

            Accessible.ignored: true
        }
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: TypeScale.caption
        height: width
        kind: Symbol.ChevronUpDown
        color: TunerTheme.muted
    }
}
