// SPDX-License-Identifier: MIT
pragma Singleton
import QtQuick
import Corvane

// The sizes of the screen's texts by what they are for, in points of the screen's own scale.
QtObject {
    readonly property int title2: 22
    readonly property int title3: 17
    readonly property int headline: 14
    readonly property int body: 13
    readonly property int footnote: 13
    readonly property int subheadline: 12
    readonly property int caption: 12
    readonly property int caption2: 11

    // For the note: round letters where the desktop has them.
    readonly property string rounded: "Quicksand"
}
