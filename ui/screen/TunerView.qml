// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The whole screen: one centred column that shrinks to fit and never scrolls.
Item {
    id: root

    required property TunerModel tuner
    readonly property fit metrics: tuner.fit(width, height)

    Column {
        id: column

        // On whole points, or lines would be blurred.
        x: Math.round((root.width - width) / 2)
        y: Math.round((root.height - height) / 2)
        width: Math.min(root.width, 640)
        leftPadding: root.metrics.side
        rightPadding: root.metrics.side
        topPadding: root.metrics.pad
        bottomPadding: root.metrics.pad
        spacing: root.metrics.gap
        scale: root.height < implicitHeight ? root.height / implicitHeight : 1

        readonly property real inner: width - leftPadding - rightPadding

        Header {
            width: column.inner
            tuner: root.tuner
        }

        NoteReadout {
            width: column.inner
            tuner: root.tuner
            metrics: root.metrics
        }

        Meters {
            width: column.inner
            tuner: root.tuner
            metrics: root.metrics
        }

        FrequencyLine {
            width: column.inner
            tuner: root.tuner
        }

        ControlsCard {
            width: column.inner
            tuner: root.tuner
            metrics: root.metrics
        }

        MicrophonePrompt {
            width: column.inner
            visible: root.tuner.errorText !== ""
            tuner: root.tuner
            successor: footer.link
        }

        Footer {
            id: footer

            anchors.horizontalCenter: parent.horizontalCenter
            tuner: root.tuner
            metrics: root.metrics
        }
    }
}
