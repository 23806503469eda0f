pragma ComponentBehavior: Bound

import QtQuick
import Sonavo

// The files that the last clean-up could not move, and why. Items exist for visible rows only.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Colors.secondaryBackground
        border.width: Colors.outlineWidth
        border.color: Colors.border
    }

    PlainText {
        id: title
        anchors.left: parent.left
        anchors.leftMargin: 16
        y: 12
        text: failures.title
        font.pixelSize: 14
        font.weight: Font.DemiBold
        color: Colors.errorText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: 1
        anchors.topMargin: 40
        anchors.bottomMargin: 8
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        // Screen readers would take rows outside the view for visible.
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        highlightMoveVelocity: -1
        currentIndex: 0
        Accessible.role: Accessible.List
        Accessible.name: title.text

        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) failures.reveal(currentIndex); }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) failures.reveal(currentIndex); }

        model: CleanUpFailuresModel {
            id: failures
            viewModel: view.viewModel
        }

        delegate: Rectangle {
            id: row

            required property int index
            required property string path
            required property string reason
            readonly property bool isCurrent: list.activeFocus && list.currentIndex === index

            width: list.width
            height: 50
            color: hover.hovered ? Qt.alpha(Colors.row, 0.6) : "transparent"
            Accessible.role: Accessible.ListItem
            Accessible.name: path + qsTr(", ", "between the parts of a description") + reason
            Accessible.focusable: true
            Accessible.focused: isCurrent
            Accessible.selected: isCurrent
            ListView.onPooled: visible = false
            ListView.onReused: {
                visible = true;
                // Qt 6.8 keeps reused items out of the accessibility tree.
                Accessible.ignored = false;
            }

            HoverHandler {
                id: hover
            }
            TapHandler {
                onTapped: {
                    list.currentIndex = row.index;
                    list.forceActiveFocus(Qt.MouseFocusReason);
                }
            }

            Rectangle {
                anchors.fill: parent
                anchors.leftMargin: 6
                anchors.rightMargin: 6
                radius: 6
                color: "transparent"
                visible: row.isCurrent
                border.width: 2
                border.color: Colors.focusRing
            }

            Cell {
                y: 7
                text: row.path
                elide: Text.ElideMiddle
                font.weight: Font.Medium
                color: Colors.textPrimary
            }
            Cell {
                y: 26
                text: row.reason
                color: Colors.textSecondary
            }

            IconButton {
                anchors.right: parent.right
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                symbol: "folder"
                symbolSize: 16
                toolTip: qsTr("Show in Folder")
                onClicked: failures.reveal(row.index)
            }
        }
    }

    ThinScrollBar {
        flickable: list
        anchors.top: list.top
        anchors.bottom: list.bottom
        anchors.right: parent.right
    }

    component Cell: ElidedText {
        id: cell

        anchors.left: parent ? parent.left : undefined
        anchors.leftMargin: 16
        width: list.width - 74
        font.pixelSize: 13
        Accessible.ignored: true

        HoverHandler {
            id: cellHover
        }
        PlainToolTip {
            text: cell.fullText
            isHovered: cellHover.hovered
        }
    }
}
