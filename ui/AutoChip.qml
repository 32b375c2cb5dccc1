import QtQuick
import Corvane

// Lets the tuner choose the string.
Chip {
    id: root

    text: "Auto"
    selected: !(row?.tuner.locked ?? false)
    onClicked: row.tuner.releaseLock()
    fill: selected ? Qt.rgba(TunerTheme.gold.r, TunerTheme.gold.g, TunerTheme.gold.b, 0.22) : TunerTheme.card

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: selected

    contentItem: Label {
        text: root.text
        color: root.selected ? TunerTheme.gold : "white"
        font.pixelSize: TypeScale.subheadline
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        Accessible.ignored: true
    }
}
