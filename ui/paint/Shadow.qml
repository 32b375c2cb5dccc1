// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Falls softly below what lies on it.
Item {
    property real radius: 0

    Repeater {
        model: 8

        ContinuousRectangle {
            required property int index
            readonly property Shadow shadow: parent as Shadow

            x: -2 * index
            y: 4 - 2 * index
            width: (shadow?.width ?? 0) + 4 * index
            height: (shadow?.height ?? 0) + 4 * index
            radius: (shadow?.radius ?? 0) + 2 * index
            color: Qt.rgba(0, 0, 0, 0.07)
        }
    }
}
