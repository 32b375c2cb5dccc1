import QtQuick
import Corvane

// The version, and the way to the privacy policy.
Row {
    id: root

    required property TunerModel tuner
    required property fit metrics
    readonly property alias link: link

    spacing: 10

    Label {
        visible: root.metrics.showsVersion
        text: "Version " + root.tuner.appVersion
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
    }

    PlainButton {
        id: link

        implicitWidth: title.width
        implicitHeight: title.implicitHeight
        onClicked: root.tuner.openPrivacyPolicy()

        Accessible.role: Accessible.Link
        Accessible.name: title.text

        FocusRing {
            control: link
            radius: 5
            visible: link.visualFocus
        }

        Label {
            id: title

            text: root.tuner.privacyTitle
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2
            font.underline: link.hovered

            Accessible.ignored: true
        }

        // Not a handler of hover: while the pointer rests on the window, Qt 6.4 adds each one to a list
        // of its own with every frame.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.NoButton
            cursorShape: Qt.PointingHandCursor
        }
    }
}
