// SPDX-License-Identifier: MIT
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
    readonly property real sectionHeight: heading === "" ? 0 : 26
    readonly property MenuView list: ListView.view as MenuView

    width: list?.width ?? 0
    height: sectionHeight + entry.height

    function isEntryAt(y: real): bool {
        return y >= entry.y;
    }

    Label {
        x: 10
        y: root.sectionHeight - 4 - height
        visible: text !== ""
        text: root.heading
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
        font.weight: Font.DemiBold

        Accessible.role: Accessible.Heading
    }

    MenuEntry {
        id: entry

        y: root.sectionHeight
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
