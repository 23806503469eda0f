pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Sonavo

// What the keyboard does.
ModalSheet {
    id: sheet

    title: Shortcuts.textOf(Shortcuts.ShowShortcuts)
    width: Math.min(840, parent ? parent.width - 40 : 840)
    padding: 24
    onOpened: closeButton.forceActiveFocus(Qt.PopupFocusReason)

    contentItem: ColumnLayout {
        spacing: 14

        Shortcut {
            // Two active shortcuts would cancel each other.
            enabled: sheet.opened
            sequences: Shortcuts.sequencesOf(Shortcuts.ShowShortcuts)
            onActivated: sheet.close()
        }

        PlainText {
            text: sheet.title
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: Colors.textPrimary
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 32

            KeyTable {
                title: qsTr("In the List of Results")
                group: Shortcuts.ListGroup
            }
            KeyTable {
                title: qsTr("Everywhere")
                group: Shortcuts.EverywhereGroup
            }
        }

        ScaleButtonStyle {
            id: closeButton
            Layout.alignment: Qt.AlignRight
            Layout.preferredWidth: Math.max(100, implicitWidth)
            text: qsTr("Close")
            font.pixelSize: 15
            onClicked: sheet.close()
        }
    }

    component KeyTable: ColumnLayout {
        id: table

        required property string title
        required property int group

        Layout.fillWidth: true
        Layout.preferredWidth: 1
        Layout.alignment: Qt.AlignTop
        spacing: 5

        PlainText {
            Layout.bottomMargin: 2
            text: table.title
            font.pixelSize: 13
            font.weight: Font.DemiBold
            color: Colors.textSecondary
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Repeater {
            model: Shortcuts.actionsOf(table.group)

            Item {
                id: row

                required property int modelData

                Layout.fillWidth: true
                implicitHeight: Math.max(action.implicitHeight, keys.implicitHeight)
                Accessible.role: Accessible.StaticText
                Accessible.name: keys.text + ", " + action.text

                PlainText {
                    id: action
                    anchors.left: parent.left
                    anchors.right: keys.left
                    anchors.rightMargin: 12
                    wrapMode: Text.Wrap
                    text: Shortcuts.textOf(row.modelData)
                    font.pixelSize: 13
                    color: Colors.textPrimary
                    Accessible.ignored: true
                }
                PlainText {
                    id: keys
                    anchors.right: parent.right
                    text: Shortcuts.shownKeysOf(row.modelData)
                    font.pixelSize: 13
                    font.weight: Font.Medium
                    color: Colors.accentText
                    Accessible.ignored: true
                }
            }
        }
    }
}
