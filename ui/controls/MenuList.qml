// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The list of a pull-down menu.
MenuView {
    id: root

    readonly property int page: Math.max(1, Math.floor(height / entryHeight) - 1) // rows

    implicitHeight: contentHeight
    clip: true
    focus: true
    currentIndex: -1
    model: entries
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    cacheBuffer: 4000 // keeps all rows

    // Starts at the chosen entry or, in a menu without choice, at the one with this value.
    function showCurrent(current: string): void {
        // Creates every row: a ListView estimates its height from the rows that exist, and since Qt 6.8
        // scrolling stops when the estimate changes.
        for (let row = 0; row < count; ++row)
            positionViewAtIndex(row, ListView.Contain);
        currentIndex = hasChoice ? entries.chosenRow : entries.rowWith(current);
        if (currentIndex < 0 && byKeyboard)
            currentIndex = 0;
        positionViewAtIndex(Math.max(currentIndex, 0), ListView.Center);
    }

    // The row of the entry at this place; -1 for none.
    function rowAt(place: point): int {
        const inList = contentItem.mapFromItem(null, place);
        const inView = mapFromItem(null, place);
        const row = contains(inView) ? itemAt(inList.x, inList.y) as MenuRow : null;
        return row?.isEntryAt(inList.y - row.y) ? row.index : -1;
    }

    function highlightAt(place: point): void {
        const row = rowAt(place);
        if (row < 0)
            return;
        byKeyboard = false;
        currentIndex = row;
    }

    // Clamped to the entries.
    function moveBy(rows: int): void {
        currentIndex = Math.max(0, Math.min(currentIndex + rows, count - 1));
    }

    function moveTo(letter: string): void {
        const row = entries.rowStartingWith(letter, currentIndex);
        if (row >= 0)
            currentIndex = row;
    }

    Keys.onPressed: event => {
        byKeyboard = true;
        if (event.key === Qt.Key_Home)
            moveBy(-count);
        else if (event.key === Qt.Key_End)
            moveBy(count);
        else if (event.key === Qt.Key_PageUp)
            moveBy(-page);
        else if (event.key === Qt.Key_PageDown)
            moveBy(page);
        else if (event.modifiers === Qt.NoModifier || event.modifiers === Qt.ShiftModifier)
            moveTo(event.text);
    }

    delegate: MenuRow {}

    Accessible.role: Accessible.PopupMenu

    // Only pointer motion moves the highlight, not a resting pointer below which the list opens or
    // scrolls.
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
