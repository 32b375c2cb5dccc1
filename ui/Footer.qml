import QtQuick
import Corvane

// The version, and the way to the privacy policy.
Row {
    id: root

    required property TunerModel tuner
    required property fit metrics

    spacing: 10

    Label {
        visible: root.metrics.showsVersion
        text: "Version " + root.tuner.appVersion
        color: TunerTheme.muted
        font.pixelSize: TypeScale.caption2
    }

    PlainButton {
        id: link

        text: root.tuner.privacyTitle
        implicitWidth: implicitContentWidth
        implicitHeight: implicitContentHeight
        onClicked: root.tuner.openPrivacyPolicy()

        Accessible.role: Accessible.Link
        Accessible.name: text

        contentItem: Label {
            text: link.text
            color: TunerTheme.muted
            font.pixelSize: TypeScale.caption2
            font.underline: link.hovered

            Accessible.ignored: true
        }

        background: Item {
            FocusRing {
                control: parent
                radius: 5
                visible: link.visualFocus
            }
        }

        HoverHandler {
            cursorShape: Qt.PointingHandCursor
        }
    }
}
