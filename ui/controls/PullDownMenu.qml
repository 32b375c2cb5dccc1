// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// A menu that opens at a control, at its chosen entry. Nothing of it exists while it is closed.
Item {
    id: root

    required property Item control
    required property MenuModel entries
    property int alignment: Qt.AlignLeft // edge of the control
    property string current // the value to start at in a menu without choice
    property Item shown: null
    readonly property bool opened: shown !== null

    signal picked(value: string)

    function open(): void {
        if (opened)
            return;
        // By name, so that it is not loaded before.
        shown = Qt.createComponent("MenuOverlay.qml").createObject(Window.contentItem, {
                control: control,
                entries: entries,
                current: current,
                listWidth: width,
                alignment: alignment
            });
    }

    // After a keyboard close the control shows its focus ring.
    function close(reason: int): void {
        discard();
        control.forceActiveFocus(reason);
    }

    function discard(): void {
        shown?.destroy();
        shown = null;
    }

    Component.onDestruction: discard()

    // Opens on press, so that one can drag to an entry and release.
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
