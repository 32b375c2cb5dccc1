import QtQuick
import Corvane

// The concert pitches that are wanted most.
TunerRow {
    id: root

    gap: 8

    Repeater {
        model: root.tuner.quickPitches

        QuickPitchChip {}
    }
}
