// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A chip for automatic choice and one for each string of the tuning.
TunerRow {
    id: root

    required property fit metrics

    // Keeps the regions below on whole points.
    height: Math.round(metrics.chip)
    gap: 6
    itemWidth: metrics.chip

    AutoChip {}

    Repeater {
        model: root.tuner.strings

        StringChip {}
    }
}
