// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Instrument, tuning, strings and reference.
Card {
    id: root

    required property TunerModel tuner

    spacing: metrics.compact ? 6 : 8
    overflow: Math.max(0, strings.implicitWidth - strings.gap - (width - 2 * padding))

    InstrumentPicker {
        width: parent.width
        tuner: root.tuner
    }

    TuningMenu {
        width: parent.width
        tuner: root.tuner
        metrics: root.metrics
    }

    StringRow {
        id: strings

        visible: root.tuner.strings.count > 0
        tuner: root.tuner
        metrics: root.metrics
    }

    ReferenceRow {
        width: parent.width
        spacing: root.spacing
        tuner: root.tuner
        metrics: root.metrics
    }
}
