// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The microphone message and its button.
Column {
    id: root

    required property TunerModel tuner
    property Item successor // gets the focus when the prompt disappears with it
    property bool lent: false // the focus, to the successor

    spacing: 8

    onVisibleChanged: {
        if (!visible && button.activeFocus && successor) {
            successor.forceActiveFocus(Qt.OtherFocusReason);
            lent = true;
        } else if (visible && lent) {
            // As after an unsuccessful press: the focus is where it was.
            if (successor.activeFocus)
                button.forceActiveFocus(Qt.OtherFocusReason);
            lent = false;
        }
    }

    Label {
        width: root.width
        text: root.tuner.errorText
        color: TunerTheme.flat
        font.pixelSize: TypeScale.footnote
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap

        Accessible.role: Accessible.AlertMessage
        Accessible.description: "Microphone problem"
    }

    PlainButton {
        id: button

        width: root.width
        implicitHeight: title.implicitHeight + 20
        onClicked: root.tuner.allowMicrophone()

        Accessible.role: Accessible.Button
        Accessible.name: title.text

        GoldFace {
            control: button
        }

        Label {
            id: title

            anchors.centerIn: parent
            text: "Allow Microphone"
            color: "black"
            font.weight: Font.Bold

            Accessible.ignored: true
        }
    }
}
