import QtQuick
import Corvane

// A list in sections that opens over a control, at the entry that is chosen. Nothing of it exists
// while it is closed.
Item {
    id: root

    required property Item control
    required property MenuModel entries
    property int alignment: Qt.AlignLeft // with which edge of the control
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
