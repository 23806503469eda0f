import QtQuick
import Sonavo

// Says whether a song is the original of its group or a duplicate, and marks one that only looking further has found.
Item {
    id: badge

    required property bool isOriginal
    // Why the song is marked; empty for the others.
    required property string furtherReason
    readonly property bool isHovered: pointer.hovered
    readonly property bool isMarked: furtherReason !== ""
    // The room for the mark, before the badge.
    readonly property real markWidth: 12

    width: markWidth + TableColumns.badgeWidth
    height: 24

    PlainText {
        anchors.left: parent.left
        anchors.leftMargin: badge.markWidth
        anchors.verticalCenter: parent.verticalCenter
        text: badge.isOriginal ? TableColumns.originalTitle.text + "   " : TableColumns.duplicateTitle.text
        font.pixelSize: TableColumns.badgeFont.pixelSize
        font.weight: TableColumns.badgeFont.weight
        font.italic: badge.isMarked
        color: badge.isOriginal ? Colors.original : Colors.duplicate
        Accessible.ignored: true
    }

    // A small ring.
    Rectangle {
        visible: badge.isMarked
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 5
        height: 5
        radius: 2.5
        color: "transparent"
        border.width: Math.max(1.5, Colors.outlineWidth)
        border.color: Colors.duplicate
    }

    HoverHandler {
        id: pointer
        enabled: badge.isMarked
    }

    PlainToolTip {
        text: badge.furtherReason
        isHovered: pointer.hovered
    }
}
