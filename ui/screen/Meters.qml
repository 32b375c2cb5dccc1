// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Two meters of different range, and the level.
Card {
    id: root

    required property TunerModel tuner

    spacing: metrics.compact ? 6 : 10

    Meter {
        width: parent.width
        tuner: root.tuner
        title: "Cents"
        words: root.tuner.speech.centsMeter
        span: 50
        bar: root.metrics.bar
    }

    Meter {
        width: parent.width
        tuner: root.tuner
        title: "Fine"
        words: root.tuner.speech.fineMeter
        span: 10
        bar: root.metrics.bar
    }

    LevelBar {
        width: parent.width
        signal: root.tuner.level
        words: root.tuner.speech.level
    }
}
