import QtQuick
import Corvane

// A list in sections that opens over a control, at the entry that is chosen. Nothing of it exists
// while it is closed.
Item {
    id: root

    required property Item control
    required property MenuModel entries
    property int alignment: Qt.AlignLeft // with which edge of the control
    property string current // the value at which it starts where no entry can be chosen
    property Item shown: null
    readonly property bool opened: shown !== null

    signal picked(value: string)

    function open(): void {
        if (opened)
            return;
        // By its name, so that none of it is loaded before.
        shown = Qt.createComponent("MenuOverlay.qml").createObject(Window.contentItem, {
                control: control,
                entries: entries,
                current: current,
                listWidth: width,
                alignment: alignment
            });
    }

    // Whoever closes it with the keyboard sees where the keyboard is then.
    function close(reason: int): void {
        discard();
        control.forceActiveFocus(reason);
    }

    function discard(): void {
        shown?.destroy();
        shown = null;
    }

    Component.onDestruction: discard()

    // It opens with the press, so that one can drag to an entry and let go there.
    Connections {
        target: root.control as PlainButton

        function onPressed(): void {
            root.open();
        }

        function onClicked(): void {
            root.open();
        }

        function onDragged(place: point): void {
            (root.shown as MenuOverlay)?.list.highlightAt(place);
        }

        function onDropped(place: point): void {
            (root.shown as MenuOverlay)?.drop(place);
        }
    }

    Connections {
        target: root.shown

        function onDismissed(reason: int): void {
            root.close(reason);
        }

        function onPicked(value: string, reason: int): void {
            root.close(reason);
            root.picked(value);
        }
    }
}
