import QtQuick
import Corvane

// What the entries of a menu know of the menu they stand in.
ListView {
    required property MenuModel entries

    signal picked(value: string)

    function pick(row: int): void {
        if (row >= 0)
            picked(entries.valueAt(row));
    }
}
