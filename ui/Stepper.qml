import QtQuick
import Corvane

// A pair of buttons that change a number by one, held inside its range.
Item {
    id: root

    required property real value
    required property real from
    required property real to

    signal stepped(value: real)

    implicitWidth: 64
    activeFocusOnTab: true

    function step(by: real): void {
        const next = Math.max(from, Math.min(value + by, to));
        if (next !== value)
            stepped(next);
    }

    Keys.onUpPressed: step(1)
    Keys.onDownPressed: step(-1)

    Accessible.role: Accessible.SpinBox
    Accessible.name: "Concert pitch in hertz"
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)

    ContinuousRectangle {
        anchors.fill: parent
        radius: 8
        color: Qt.rgba(1, 1, 1, 0.08)
    }

    StepperButton {
        width: root.width / 2
        height: root.height
        kind: Symbol.Minus
        name: "Lower"
        enabled: root.value > root.from
        onClicked: root.step(-1)
    }

    Rectangle {
        anchors.centerIn: parent
        width: 1
        height: parent.height - 12
        color: Qt.rgba(1, 1, 1, 0.14)
    }

    StepperButton {
        x: root.width / 2
        width: root.width / 2
        height: root.height
        kind: Symbol.Plus
        name: "Raise"
        enabled: root.value < root.to
        onClicked: root.step(1)
    }

    FocusRing {
        control: parent
        radius: 11
        visible: root.activeFocus
    }
}
