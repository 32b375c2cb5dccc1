import QtQuick
import QtQuick.Templates as T
import Corvane

// A list in sections that opens over the control it stands in, at the entry that is chosen, no
// higher than the window.
T.Popup {
    id: root

    required property MenuModel entries
    readonly property MenuList list: contentItem as MenuList

    signal picked(value: string)

    margins: 8
    padding: 6
    y: parent ? parent.height + 4 : 0
    implicitWidth: 220
    implicitHeight: Math.min(implicitContentHeight + 2 * padding, (parent?.Window.height ?? 0) - 2 * margins)
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onAboutToShow: list.showChosen()

    contentItem: MenuList {
        entries: root.entries
        onPicked: value => {
            root.close();
            root.picked(value);
        }
    }

    background: ContinuousRectangle {
        radius: 12
        color: Qt.lighter(TunerTheme.card, 1.25)
        borderWidth: 1
        borderColor: Qt.rgba(1, 1, 1, 0.14)
    }
}
