import QtQuick
import Corvane

// A row of a menu: an entry, below the section's heading if it is the first. The entry of the current
// row has the focus, so that screen readers announce it.
FocusScope {
    id: root

    required property int index
    required property string heading
    required property string title
    required property bool chosen
    readonly property MenuView list: ListView.view as MenuView

    width: list?.width ?? 0
    height: section.height + entry.height

    function isEntryAt(y: real): bool {
        return y >= entry.y;
    }

    MenuSection {
        id: section

        width: root.width
        title: root.heading
    }

    MenuEntry {
        id: entry

        y: section.height
        width: root.width
        height: root.list?.entryHeight ?? 0
        title: root.title
        choosable: root.list?.hasChoice ?? false
        chosen: root.chosen
        indent: root.list?.indent ?? 0
        highlighted: root.ListView.isCurrentItem
        ringed: highlighted && root.list.byKeyboard
        onClicked: root.list.pick(root.index, Qt.MouseFocusReason)

        Keys.onReturnPressed: root.list.pick(root.index, Qt.TabFocusReason)
        Keys.onEnterPressed: root.list.pick(root.index, Qt.TabFocusReason)
        Keys.onSpacePressed: root.list.pick(root.index, Qt.TabFocusReason)
    }
}
