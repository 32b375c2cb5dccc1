import QtQuick
import QtQuick.Templates as T

// A button without a look of its own, that a screen reader can press too.
T.AbstractButton {
    Accessible.onPressAction: if (enabled)
        clicked()
}
