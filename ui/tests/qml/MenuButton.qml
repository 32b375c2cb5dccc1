// SPDX-License-Identifier: MIT
import QtQuick
import Corvane
import Corvane.Fakes

// A button that opens a menu of tunings.
PlainButton {
    id: root

    required property FakeTuner tuner
    property real listWidth: 0 // 0 for the button's width
    property int alignment: Qt.AlignLeft
    readonly property alias menu: menu

    x: 100
    y: 60
    width: 200
    height: 40

    PullDownMenu {
        id: menu

        control: root
        width: root.listWidth
        alignment: root.alignment
        entries: root.tuner.tunings
    }
}
