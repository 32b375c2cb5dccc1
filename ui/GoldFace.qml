import QtQuick
import QtQuick.Templates as T
import Corvane

// The ground of the two buttons that matter most.
ContinuousRectangle {
    id: root

    required property T.AbstractButton control

    radius: 12
    color: control.down ? Qt.darker(TunerTheme.gold, 1.15) : control.hovered ? Qt.lighter(TunerTheme.gold, 1.06) : TunerTheme.gold

    FocusRing {
        control: root
        radius: 15
        visible: root.control.visualFocus
    }
}
