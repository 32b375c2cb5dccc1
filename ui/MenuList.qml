import QtQuick
import Corvane

// The entries of a pull-down menu in their sections, for mouse, touchpad and keyboard.
MenuView {
    id: root

    implicitHeight: contentHeight
    clip: true
    focus: true
    model: entries
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0

    function showChosen(): void {
        currentIndex = entries.chosenRow;
        positionViewAtIndex(Math.max(currentIndex, 0), ListView.Center);
    }

    function highlightAt(place: point): void {
        const inList = contentItem.mapFromItem(null, place);
        const row = indexAt(inList.x, inList.y);
        if (row >= 0)
            currentIndex = row;
    }

    Keys.onReturnPressed: pick(currentIndex)
    Keys.onEnterPressed: pick(currentIndex)
    Keys.onSpacePressed: pick(currentIndex)

    section.property: "section"
    section.delegate: MenuSection {}
    delegate: MenuEntry {}

    Accessible.role: Accessible.PopupMenu

    // Only a pointer that moves highlights: one that lies where a list opens, or scrolls by under
    // the arrow keys, leaves the highlight alone.
    HoverHandler {
        property var before: null

        onHoveredChanged: before = null
        onPointChanged: {
            const place = point.scenePosition;
            if (before !== null && place !== before)
                root.highlightAt(place);
            before = place;
        }
    }
}
