import QtQuick
import Corvane

// One segment of the instrument picker; the chosen one is raised.
PlainButton {
    id: root

    required property int index
    required property string modelData
    readonly property TunerRow row: parent as TunerRow

    width: row?.itemWidth ?? 0
    height: row?.height ?? 0
    text: modelData
    checked: row?.tuner.instrument === index
    onClicked: row.tuner.instrument = index

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked

    contentItem: Label {
        text: root.text
        font.weight: root.checked ? Font.DemiBold : Font.Normal
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        Accessible.ignored: true
    }

    background: ContinuousRectangle {
        radius: 6
        color: Qt.rgba(1, 1, 1, root.checked ? 0.2 : root.down ? 0.12 : root.hovered ? 0.06 : 0)

        FocusRing {
            control: parent
            radius: 8
            distance: 0
            visible: root.visualFocus
        }
    }
}
