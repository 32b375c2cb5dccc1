// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The concert pitch and the reference tone.
Column {
    id: root

    required property TunerModel tuner
    required property fit metrics

    ConcertPitchRow {
        width: root.width
        tuner: root.tuner
    }

    QuickPitches {
        tuner: root.tuner
    }

    PlayButton {
        width: root.width
        tuner: root.tuner
        compact: root.metrics.compact
    }

    Label {
        width: root.width
        visible: root.metrics.showsHint
        text: "A=440 is the modern standard. Older concerts used many other pitches, from about 377 Hz to above 560 Hz. In tune means within 5 cents."
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
        wrapMode: Text.WordWrap
    }
}
