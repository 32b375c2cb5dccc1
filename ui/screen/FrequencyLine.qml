// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The frequency and its nearest note, independent of the string.
Item {
    id: root

    required property TunerModel tuner

    implicitHeight: frequency.implicitHeight

    FixedDigits {
        id: frequency

        text: root.tuner.frequencyText
        font.pixelSize: TypeScale.title3
        font.weight: Font.Medium

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.description: "Frequency"
    }

    Label {
        anchors.right: parent.right
        anchors.baseline: frequency.baseline
        visible: text !== ""
        text: root.tuner.hearingText
        color: TunerTheme.muted
        font.pixelSize: TypeScale.subheadline

        Accessible.description: "Heard note"
    }
}
