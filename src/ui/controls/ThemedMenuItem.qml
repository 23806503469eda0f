import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// A menu item that shows its shortcut on the right.
MenuItem {
    id: item

    implicitHeight: 30
    font.pixelSize: 13
    Accessible.name: text
    Accessible.description: shortcutText.nativeText
    Accessible.onPressAction: action ? action.trigger() : clicked()

    contentItem: Item {
        PlainText {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            text: item.text
            font: item.font
            color: item.enabled ? Colors.textPrimary : Colors.neutral
        }
        PlainText {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: shortcutText.nativeText
            font: item.font
            color: Colors.textSecondary
        }
        // Never active: it only formats the shortcut of the action.
        Shortcut {
            id: shortcutText
            enabled: false
            sequence: item.action ? item.action.shortcut : ""
        }
    }
    background: Rectangle {
        radius: 5
        color: item.highlighted ? Qt.alpha(Colors.accent, 0.2) : "transparent"
    }
}
