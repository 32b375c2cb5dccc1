import QtQuick
import QtQuick.Templates as T
import Corvane

// One entry of a menu; the chosen one has a checkmark.
T.ItemDelegate {
    id: root

    required property int index
    required property string title
    required property bool chosen
    readonly property MenuView list: ListView.view as MenuView

    width: list?.width ?? 0
    height: 28
    text: title
    checked: chosen
    highlighted: ListView.isCurrentItem
    onClicked: list.pick(index)

    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: chosen
    Accessible.onPressAction: list.pick(index)

    contentItem: Item {
        Symbol {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: width
            visible: root.chosen
            kind: Symbol.Checkmark
            color: "white"
        }

        Label {
            x: 30
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - 10
            text: root.title
            elide: Text.ElideRight

            Accessible.ignored: true
        }
    }

    background: ContinuousRectangle {
        radius: 7
        color: Qt.rgba(1, 1, 1, root.down ? 0.16 : root.highlighted ? 0.1 : 0)
    }
}
