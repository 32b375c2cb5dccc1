import QtQuick
import Corvane

// The tuning, on a face that opens the list of all tunings of the instrument.
Column {
    id: root

    required property TunerModel tuner
    required property fit metrics

    spacing: metrics.compact ? 6 : 8

    LeftHandedRow {
        width: root.width
        tuner: root.tuner
    }

    PlainButton {
        id: face

        width: root.width
        padding: root.metrics.compact ? 10 : 12
        implicitHeight: implicitContentHeight + 2 * padding
        onClicked: menu.open()

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: root.tuner.tuningName
        Accessible.description: root.tuner.tuningDetail

        contentItem: TuningFace {
            tuner: root.tuner
        }

        background: ContinuousRectangle {
            radius: 14
            color: TunerTheme.card
            borderWidth: 1
            borderColor: Qt.rgba(1, 1, 1, face.down || menu.visible ? 0.24 : face.hovered ? 0.16 : 0)

            FocusRing {
                control: parent
                radius: 17
                visible: face.visualFocus
            }
        }

        PullDownMenu {
            id: menu

            width: face.width
            entries: root.tuner.tunings
            onPicked: id => root.tuner.chooseTuning(id)
        }
    }
}
