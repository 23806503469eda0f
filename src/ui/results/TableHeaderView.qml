import QtQuick
import Sonavo

// The column titles.
Rectangle {
    id: header

    implicitHeight: 32
    color: Colors.tableHeader

    // As wide as the rows.
    Item {
        anchors.fill: parent
        anchors.leftMargin: TableColumns.listMargin
        anchors.rightMargin: TableColumns.listMargin

        Title {
            anchors.left: parent.left
            anchors.leftMargin: TableColumns.badgeX
            anchors.right: parent.right
            anchors.rightMargin: TableColumns.nameEndOffset
            text: qsTr("File Name")
        }
        Title {
            anchors.right: parent.right
            anchors.rightMargin: TableColumns.typeOffset - width
            width: TableColumns.typeWidth
            symbol: "doc.badge.gearshape"
            text: TableColumns.typeTitle.text
        }
        Title {
            anchors.right: parent.right
            anchors.rightMargin: TableColumns.durationOffset - width
            width: TableColumns.durationWidth
            symbol: "clock"
            text: TableColumns.durationTitle.text
        }
        Title {
            anchors.right: parent.right
            anchors.rightMargin: TableColumns.sizeOffset - width
            width: TableColumns.sizeWidth
            symbol: "arrow.down.circle"
            text: TableColumns.sizeTitle.text
        }
        Title {
            anchors.right: parent.right
            anchors.rightMargin: TableColumns.folderOffset - width
            width: TableColumns.folderWidth
            symbol: "folder"
            text: TableColumns.folderTitle.text
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Colors.border
    }

    component Title: Item {
        id: title

        property string symbol
        property alias text: caption.text

        height: 32
        Accessible.role: Accessible.ColumnHeader
        Accessible.name: text

        HoverHandler {
            id: hover
        }
        PlainToolTip {
            text: caption.fullText
            isHovered: hover.hovered
        }
        SymbolIcon {
            id: icon
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: title.symbol !== ""
            symbol: title.symbol
            size: 12
            color: Colors.accent
        }
        ElidedText {
            id: caption
            anchors.fill: parent
            anchors.leftMargin: title.symbol !== "" ? TableColumns.titleIconWidth : 0
            font: TableColumns.titleFont
            color: Colors.textSecondary
        }
    }
}
