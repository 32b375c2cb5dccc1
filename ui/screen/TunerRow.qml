import QtQuick
import Corvane

// A row whose repeated items find the tuner, and the size they are to have, in their parent: an item
// that a model makes cannot see the names around it. The arrow keys go from button to button.
Row {
    id: root

    required property TunerModel tuner
    property real itemWidth: 0
    // Between what is seen of two items. Each item takes half of it on either side, so no press misses.
    property real gap: 0

    x: -gap / 2

    // To the next button of the row, or as many further as there are.
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
