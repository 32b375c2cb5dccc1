// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// Two buttons that change a number by one within its range. Screen readers find the range by these
// property names.
ValueItem {
    id: root

    required property real minimumValue
    required property real maximumValue
    readonly property real stepSize: 1
    readonly property real page: 10

    signal stepped(value: real)

    implicitWidth: 64
    activeFocusOnTab: true

    function step(by: real): void {
        const next = Math.max(minimumValue, Math.min(value + by, maximumValue));
        if (next !== value)
            stepped(next);
    }

    Keys.onUpPressed: step(stepSize)
    Keys.onDownPressed: step(-stepSize)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            step(event.key === Qt.Key_PageUp ? page : -page);
    }

    // One notch is 120; high-resolution wheels send fractions.
    WheelHandler {
        property real turned: 0

        onWheel: event => {
            turned += event.angleDelta.y;
            const notches = Math.trunc(turned / 120);
            turned -= notches * 120;
            root.step(notches * root.stepSize);
        }
    }

    Accessible.role: Accessible.SpinBox
    Accessible.name: "Concert pitch in hertz"
    Accessible.onIncreaseAction: step(stepSize)
    Accessible.onDecreaseAction: step(-stepSize)

    ContinuousRectangle {
        anchors.fill: parent
        radius: 8
        color: Shades.track
    }

    StepperButton {
        width: root.width / 2
        height: root.height
        kind: Symbol.Minus
        name: "Lower"
        enabled: root.value > root.minimumValue
        onClicked: root.step(-root.stepSize)
    }

    Rectangle {
        anchors.centerIn: parent
        width: 1
        height: parent.height - 12
        color: Shades.line
    }

    StepperButton {
        x: root.width / 2
        width: root.width / 2
        height: root.height
        kind: Symbol.Plus
        name: "Raise"
        enabled: root.value < root.maximumValue
        onClicked: root.step(root.stepSize)
    }

    FocusRing {
        control: parent
        radius: 11
        visible: root.activeFocus
    }
}
