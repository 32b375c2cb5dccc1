import QtQuick
import Corvane

// A chip for automatic choice and one for each string of the tuning.
TunerRow {
    id: root

    required property fit metrics

    spacing: 6
    itemWidth: metrics.chip

    AutoChip {}

    Repeater {
        model: root.tuner.strings

        StringChip {}
    }
}
