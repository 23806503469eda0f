import QtQuick
import Sonavo

// The column titles.
Rectangle {
    id: header

    implicitHeight: 32
    color: Colors.tableHeader

    Title {
        x: TableColumns.badgeX
        width: header.width - x - TableColumns.nameEndOffset
        text: qsTr("File Name")
    }
    Title {
        x: header.width - TableColumns.typeOffset
        width: TableColumns.typeWidth
        symbol: "doc.badge.gearshape"
        text: TableColumns.typeTitle.text
    }
    Title {
        x: header.width - TableColumns.durationOffset
        width: TableColumns.durationWidth
        symbol: "clock"
        text: TableColumns.durationTitle.text
    }
    Title {
        x: header.width - TableColumns.sizeOffset
        width: TableColumns.sizeWidth
        symbol: "arrow.down.circle"
        text: TableColumns.sizeTitle.text
    }
    Title {
        x: header.width - TableColumns.folderOffset
        width: TableColumns.folderWidth
        symbol: "folder"
        text: TableColumns.folderTitle.text
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
