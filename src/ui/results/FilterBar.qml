import QtQuick
import Sonavo

// Narrows the list to some groups and sorts it. Only what is shown changes.
Rectangle {
    id: bar

    required property DuplicateListModel model
    // The user is done with the field.
    signal leave

    readonly property list<string> orders: [
        qsTr("As Found", "an order of groups"), qsTr("Space Freed", "an order of groups"),
        qsTr("Name", "an order of groups"), qsTr("Folder", "an order of groups")
    ]

    function edit() {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }
    function clear() {
        field.clear();
    }

    implicitHeight: 44
    color: Colors.tableHeader

    Rectangle {
        id: frame

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(420, parent.width / 2)
        height: 30
        radius: 8
        color: Colors.background
        border.width: field.activeFocus ? 2 : Colors.outlineWidth
        border.color: field.activeFocus ? Colors.focusRing : Colors.textSecondary

        SymbolIcon {
            anchors.left: parent.left
            anchors.leftMargin: 9
            anchors.verticalCenter: parent.verticalCenter
            symbol: "magnifyingglass"
            size: 13
            color: Colors.textSecondary
        }

        TextInput {
            id: field

            anchors.fill: parent
            anchors.leftMargin: 30
            anchors.rightMargin: 32
            verticalAlignment: TextInput.AlignVCenter
            clip: true
            activeFocusOnTab: true
            selectByMouse: true
            maximumLength: 200
            font.pixelSize: 13
            color: Colors.textPrimary
            selectionColor: Qt.alpha(Colors.accent, 0.4)
            selectedTextColor: Colors.textPrimary
            onTextChanged: bar.model.filter = text
            Accessible.role: Accessible.EditableText
            Accessible.name: hint.text

            Keys.onReturnPressed: bar.leave()
            Keys.onEnterPressed: bar.leave()
            Keys.onDownPressed: bar.leave()
            Keys.onEscapePressed: {
                clear();
                bar.leave();
            }
            // Nothing that is typed here reaches the list.
            Keys.onDeletePressed: event => event.accepted = cursorPosition === length && selectedText === ""
        }

        PlainText {
            id: hint
            anchors.fill: field
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            visible: field.text === "" && field.preeditText === ""
            text: qsTr("Filter names and folders")
            font.pixelSize: 13
            color: Colors.textSecondary
            Accessible.ignored: true
        }

        IconButton {
            anchors.right: parent.right
            anchors.rightMargin: 2
            anchors.verticalCenter: parent.verticalCenter
            visible: field.text !== ""
            symbol: "xmark"
            symbolSize: 11
            toolTip: qsTr("Show all groups")
            onClicked: field.clear()
        }
    }

    ModernButtonStyle {
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(170, implicitWidth + 12)
        text: qsTr("Sort: %1").arg(bar.orders[bar.model.order])
        tint: Colors.textSecondary
        onClicked: menu.popup(this, LayoutMirroring.enabled ? width - menu.width : 0, height + 4)
    }

    ThemedMenu {
        id: menu

        ThemedMenuItem {
            text: bar.orders[0]
            onTriggered: bar.model.order = GroupOrder.AsFound
        }
        ThemedMenuItem {
            text: bar.orders[1]
            onTriggered: bar.model.order = GroupOrder.Freed
        }
        ThemedMenuItem {
            text: bar.orders[2]
            onTriggered: bar.model.order = GroupOrder.Name
        }
        ThemedMenuItem {
            text: bar.orders[3]
            onTriggered: bar.model.order = GroupOrder.Folder
        }
    }
}
