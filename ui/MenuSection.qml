import QtQuick
import Corvane

// The heading of a section in a menu.
Item {
    id: root

    required property string section

    width: ListView.view?.width ?? 0
    height: section === "" ? 0 : 26

    Label {
        x: 10
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        visible: text !== ""
        text: root.section
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
        font.weight: Font.DemiBold
    }
}
