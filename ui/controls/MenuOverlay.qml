// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Covers the window while a list is open: input outside the list closes it and reaches nothing else.
MouseArea {
    id: root

    required property Item control
    required property MenuModel entries
    required property real listWidth // 0 for the width of the control
    required property int alignment
    required property string current
    readonly property rect size: Qt.rect(0, 0, control.width, control.height)
    readonly property rect inWindow: control.mapToItem(parent, size)
    readonly property rect place: Qt.rect(inWindow.x / zoom, inWindow.y / zoom, inWindow.width / zoom, inWindow.height / zoom)
    readonly property alias list: list
    readonly property real margin: 8 // between the list and the edge of the window
    readonly property real gap: 4 // between the list and its control
    readonly property real padding: 6
    readonly property real zoom: (Window.window as Main)?.zoom ?? 1

    signal dismissed(reason: int)
    signal picked(value: string, reason: int)

    // The end of the press that opened the list.
    function drop(there: point): void {
        const isIn = item => item.contains(item.mapFromItem(null, there));
        if (list.rowAt(there) >= 0)
            list.pick(list.rowAt(there), Qt.MouseFocusReason);
        else if (!isIn(ground) && !isIn(control))
            dismissed(Qt.MouseFocusReason);
    }

    width: parent.width / zoom
    height: parent.height / zoom
    scale: zoom
    transformOrigin: Item.TopLeft
    z: 1
    acceptedButtons: Qt.AllButtons
    hoverEnabled: true
    onPressed: dismissed(Qt.MouseFocusReason)
    onWheel: wheel => wheel.accepted = true

    Keys.onEscapePressed: dismissed(Qt.TabFocusReason)
    Keys.onShortcutOverride: event => event.accepted = true
    // While assistive technology is running, Qt 6.4 activates shortcuts without a ShortcutOverride
    // event. A second shortcut with the same keys makes Help's ambiguous, so that neither acts.
    Shortcut {
        sequence: "Alt+H"
    }

    Keys.onTabPressed: event => event.accepted = true
    Keys.onBacktabPressed: event => event.accepted = true

    Component.onCompleted: {
        list.byKeyboard = (control as PlainButton)?.visualFocus ?? false;
        list.showCurrent(current);
        list.forceActiveFocus(Qt.PopupFocusReason);
    }

    Connections {
        target: root.Window.window

        function onWidthChanged(): void {
            root.dismissed(Qt.MouseFocusReason);
        }

        function onHeightChanged(): void {
            root.dismissed(Qt.MouseFocusReason);
        }

        function onVisibilityChanged(): void {
            root.dismissed(Qt.MouseFocusReason);
        }
    }

    Shadow {
        anchors.fill: ground
        radius: ground.radius
    }

    // Below the control, so that the note stays visible, unless there is little room.
    ContinuousRectangle {
        id: ground

        readonly property bool endsThere: root.alignment === Qt.AlignRight
        readonly property real start: endsThere ? root.place.right - width : root.place.x
        readonly property real wish: list.implicitHeight + 2 * root.padding
        readonly property real above: root.place.y - root.gap - root.margin
        readonly property real below: root.height - root.margin - root.place.bottom - root.gap
        readonly property bool isBelow: below >= Math.min(wish, 180) || below >= above

        x: Math.round(Math.max(root.margin, Math.min(start, root.width - width - root.margin)))
        y: Math.round(Math.max(root.margin, isBelow ? root.place.bottom + root.gap : root.place.y - root.gap - height))
        width: root.listWidth > 0 ? root.listWidth : root.place.width
        height: Math.floor(Math.min(wish, isBelow ? below : above, root.height - 2 * root.margin))
        radius: 12
        color: Shades.menu
        borderWidth: 1
        borderColor: Shades.line

        // A press beside the entries does not close the list.
        MouseArea {
            anchors.fill: parent
        }

        MenuList {
            id: list

            anchors.fill: parent
            anchors.margins: root.padding
            entries: root.entries
            onPicked: (value, reason) => root.picked(value, reason)
        }

        // The scroll indicator.
        Capsule {
            anchors.right: parent.right
            anchors.rightMargin: 2
            y: list.y + list.visibleArea.yPosition * list.height
            width: 3
            height: list.visibleArea.heightRatio * list.height
            visible: list.visibleArea.heightRatio < 1
            color: Shades.unavailable
        }
    }
}
