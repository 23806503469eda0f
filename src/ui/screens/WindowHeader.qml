import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Sonavo

// The top of the window: menus on the left, the theme button on the right.
Rectangle {
    id: header

    required property ThemeManager themeManager
    property alias menus: menuBar.menus

    // Opens the first menu, for the keyboard.
    function openMenu() {
        const first = menuBar.itemAt(0) as MenuBarItem;
        first.forceActiveFocus(Qt.MenuBarFocusReason);
        first.triggered();
    }

    implicitHeight: 36
    color: Colors.background

    MenuBar {
        id: menuBar

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: 6
        background: null
        delegate: MenuBarItem {
            id: item
            verticalPadding: 4
            horizontalPadding: 10
            font.pixelSize: 13
            // Qt takes it for a menu bar of its own, whatever role it is given.
            Accessible.ignored: true
            contentItem: PlainText {
                text: item.text.replace("&", "")
                font: item.font
                color: Colors.textPrimary
                Accessible.role: Accessible.MenuItem
                Accessible.name: text
                Accessible.onPressAction: item.triggered()
            }
            background: Rectangle {
                radius: 6
                color: item.highlighted || item.down ? Qt.alpha(Colors.accent, 0.18) : "transparent"
            }
        }
    }

    T.AbstractButton {
        id: themeButton

        readonly property bool isDark: header.themeManager.isDark

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 28
        implicitHeight: 28
        hoverEnabled: true
        focusPolicy: Qt.StrongFocus
        onClicked: header.themeManager.toggleTheme()

        Accessible.role: Accessible.Button
        Accessible.name: toolTip.text
        Accessible.onPressAction: clicked()
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

        contentItem: Item {
            SymbolIcon {
                anchors.centerIn: parent
                symbol: themeButton.isDark ? "sun.max.fill" : "moon.fill"
                size: 12
                color: themeButton.isDark ? "#FFD700" : Colors.textSecondary
            }
        }
        background: Rectangle {
            radius: 8
            color: themeButton.hovered ? Qt.alpha(Colors.accent, 0.12) : "transparent"
            FocusRing { control: themeButton; anchors.margins: 0 }
        }

        PlainToolTip {
            id: toolTip
            text: themeButton.isDark ? qsTr("Switch to the light theme") : qsTr("Switch to the dark theme")
            isHovered: themeButton.hovered
            isPressed: themeButton.down
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Colors.border
    }
}
