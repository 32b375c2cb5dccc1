// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The part of a menu that its rows refer to.
ListView {
    required property MenuModel entries
    property bool byKeyboard: false // moved the highlight last
    readonly property real entryHeight: 28
    // Entries are alternatives, one of them chosen; otherwise each is a command.
    readonly property bool hasChoice: entries.chosenRow >= 0
    // Room for checkmarks.
    readonly property real indent: hasChoice ? 30 : 10

    // The focus reason: keyboard or press.
    signal picked(value: string, reason: int)

    function pick(row: int, reason: int): void {
        if (row >= 0)
            picked(entries.valueAt(row), reason);
    }
}
