import QtQuick
import Corvane

// The heading of a menu section; empty without a title.
Item {
    id: root

    required property string title

    height: title === "" ? 0 : 26

    Label {
        x: 10
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        visible: text !== ""
        text: root.title
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
        font.weight: Font.DemiBold

        Accessible.role: Accessible.Heading
    }
}
