// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The most common concert pitches.
TunerRow {
    id: root

    gap: 8

    Repeater {
        model: root.tuner.quickPitches

        QuickPitchChip {}
    }
}
