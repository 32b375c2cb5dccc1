// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A row of buttons. Delegates find tuner and size in their parent, because they cannot see the ids
// around a Repeater's model. The arrow keys go from button to button.
Row {
    id: root

    required property TunerModel tuner
    property real itemWidth: 0
    // The visible gap. Each item extends over half of it, so that no press misses.
    property real gap: 0

    x: -gap / 2

    // Moves the focus by this many buttons.
    function moveFocus(forward: bool, most: int): void {
        let item = Window.activeFocusItem;
        for (let i = 0; i < most; ++i) {
            const next = item.nextItemInFocusChain(forward);
            if (next.parent !== root)
                break;
            item = next;
        }
        item.forceActiveFocus(Qt.TabFocusReason);
    }

    Keys.onLeftPressed: moveFocus(false, 1)
    Keys.onRightPressed: moveFocus(true, 1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            moveFocus(event.key === Qt.Key_End, children.length);
    }
}
