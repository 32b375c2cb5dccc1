// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A rectangle whose shorter sides are half circles. Not the toolkit's rounded rectangle: that one
// draws its corners from small pictures, and crashes while doing so on a scaled screen.
ContinuousRectangle {
    radius: Math.min(width, height) / 2
}
