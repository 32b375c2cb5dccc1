import QtQuick
import Corvane

// A row whose repeated items find the tuner, and the size they are to have, in their parent: an item
// that a model makes cannot see the names around it.
Row {
    required property TunerModel tuner
    property real itemWidth: 0
}
