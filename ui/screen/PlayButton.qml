// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Plays the reference tone.
PlainButton {
    id: root

    required property TunerModel tuner
    required property bool compact

    implicitHeight: label.implicitHeight + 2 * (compact ? 8 : 10)
    onClicked: tuner.playReference()

    Accessible.role: Accessible.Button
    Accessible.name: label.text

    GoldFace {
        control: root
    }

    PlayLabel {
        id: label

        anchors.centerIn: parent
        text: root.tuner.playingReference ? "Playing" : "Play reference"
    }
}
