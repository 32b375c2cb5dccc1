import QtQuick
import Corvane

// One concert pitch to choose at a touch.
PlainButton {
    id: root

    required property int modelData
    readonly property TunerRow row: parent as TunerRow
    readonly property bool selected: row?.tuner.wholeHertz === modelData

    text: modelData
    checked: selected
    leftPadding: 10
    rightPadding: 10
    topPadding: 6
    bottomPadding: 6
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding

    onClicked: row.tuner.a4 = modelData

    Accessible.role: Accessible.RadioButton
    Accessible.name: modelData + " Hz"
    Accessible.checkable: true
    Accessible.checked: selected

    contentItem: Label {
        text: root.text
        color: root.selected ? TunerTheme.gold : "white"
        font.pixelSize: TypeScale.caption
        font.weight: Font.DemiBold

        Accessible.ignored: true
    }

    background: Capsule {
        color: root.selected ? Qt.rgba(TunerTheme.gold.r, TunerTheme.gold.g, TunerTheme.gold.b, 0.22) : Qt.rgba(1, 1, 1, root.down ? 0.14 : root.hovered ? 0.1 : 0.06)

        FocusRing {
            control: parent
            radius: height / 2
            visible: root.visualFocus
        }
    }
}
