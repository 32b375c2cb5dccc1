import QtQuick
import Corvane

// Plays the pitch to tune to.
PlainButton {
    id: root

    required property TunerModel tuner
    required property bool compact

    text: tuner.playingReference ? "Playing" : "Play reference"
    verticalPadding: compact ? 8 : 10
    implicitHeight: implicitContentHeight + 2 * verticalPadding
    onClicked: tuner.playReference()

    Accessible.role: Accessible.Button
    Accessible.name: text

    contentItem: PlayLabel {
        text: root.text
    }

    background: GoldFace {
        control: root
    }
}
