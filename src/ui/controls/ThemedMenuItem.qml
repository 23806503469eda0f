import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// A menu item that shows its shortcut on the right.
MenuItem {
    id: item

    // A key that does the same, where it is no shortcut of an action.
    property string key

    implicitHeight: 30
    font.pixelSize: 13
    Accessible.name: text
    Accessible.description: shortcutText.nativeText
    Accessible.onPressAction: {
        if (action)
            action.trigger();
        else if (enabled)
            clicked();
    }

    contentItem: Item {
        implicitWidth: label.implicitWidth + (shortcutLabel.text === "" ? 0 : shortcutLabel.implicitWidth + 24)

        PlainText {
            id: label
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            text: item.text
            font: item.font
            color: item.enabled ? Colors.textPrimary : Colors.neutral
        }
        PlainText {
            id: shortcutLabel
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: shortcutText.nativeText
            font: item.font
            color: Colors.textSecondary
        }
        // Never active: it only formats what is shown.
        Shortcut {
            id: shortcutText
            enabled: false
            sequence: item.action ? item.action.shortcut : item.key
        }
    }
    background: Rectangle {
        radius: 5
        color: item.highlighted ? Qt.alpha(Colors.accent, 0.2) : "transparent"
    }
}
