// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

// The version and the link to the privacy policy.
Item {
    id: root

    required property TunerModel tuner
    required property fit metrics
    readonly property alias link: link

    implicitWidth: version.advance + title.width
    implicitHeight: title.height

    Label {
        id: version

        readonly property real advance: visible ? width + 10 : 0

        visible: root.metrics.showsVersion
        text: "Version " + root.tuner.appVersion
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
    }

    // Larger than its text, to be easy to hit.
    PlainButton {
        id: link

        x: version.advance - 5
        y: -5
        width: title.width + 10
        height: title.height + 10
        onClicked: root.tuner.openPrivacyPolicy()

        Accessible.role: Accessible.Link
        Accessible.name: title.text

        FocusRing {
            control: link
            distance: -1
            radius: 7
            visible: link.visualFocus
        }

        Label {
            id: title

            x: 5
            y: 5
            text: root.tuner.privacyTitle
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2
            font.underline: link.hovered

            Accessible.ignored: true
        }

        // Work around Qt 6.4's HoverHandler leak: it adds each handler to a list with every frame.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.NoButton
            cursorShape: Qt.PointingHandCursor
        }
    }
}
