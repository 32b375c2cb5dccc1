import QtQuick
import Corvane

// What the rows of a menu know of the menu they stand in.
ListView {
    required property MenuModel entries
    property bool byKeyboard: false // was the highlight moved last
    readonly property real entryHeight: 28
    // One of the entries is the current one; else each is something to do.
    readonly property bool hasChoice: entries.chosenRow >= 0
    // Room for a checkmark before the titles, where an entry can have one.
    readonly property real indent: hasChoice ? 30 : 10

    // The reason tells a choice by the keyboard from one by a press.
    signal picked(value: string, reason: int)

    function pick(row: int, reason: int): void {
        if (row >= 0)
            picked(entries.valueAt(row), reason);
    }
}
