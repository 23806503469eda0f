import QtQuick
import Sonavo

// The row of a song.
Item {
    id: row

    required property var song
    required property string name
    required property string fileType
    required property bool isPlaying
    required property bool isOriginal
    required property string furtherReason
    required property string duration
    required property string size
    required property string folder
    required property string details
    required property string quality
    required property string description
    // Whether a tooltip shows the details.
    required property bool showsDetails
    // Whether this is the current row, and the list has keyboard focus.
    required property bool isCurrent

    // Where the row was last clicked. While the song plays, a marker shows there, beside the pointer.
    property point clickPosition: Qt.point(-1, -1)

    readonly property bool isMirrored: LayoutMirroring.enabled

    signal play
    // From the second at which another song of the group is.
    signal compare
    signal seek(real x)
    signal remove
    signal select
    signal openMenu(real x, real y)

    height: 40
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.description: quality
    Accessible.focusable: true
    Accessible.focused: isCurrent
    Accessible.selected: isCurrent
    Accessible.onPressAction: play()

    onIsPlayingChanged: clickPosition = Qt.point(-1, -1)

    Rectangle {
        anchors.fill: parent
        color: Colors.section
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: 6
        color: row.isPlaying ? Qt.tint(Colors.row, Qt.alpha(Colors.accent, 0.15))
             : pointer.containsMouse ? Qt.tint(Colors.row, Qt.alpha(Colors.textPrimary, 0.06)) : Colors.row
        border.width: row.isCurrent ? 2 : row.isPlaying ? Colors.outlineWidth : 0
        border.color: row.isCurrent ? Colors.focusRing : Qt.alpha(Colors.accent, Colors.faintOutlineOpacity)

        Rectangle {
            visible: row.isPlaying && row.clickPosition.x >= 0
            x: Math.max(0, Math.min(row.clickPosition.x - 4, parent.width - 2))
            width: 2
            height: parent.height
            color: Qt.alpha(Colors.accent, 0.5)
        }
    }

    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            row.select();
            if (mouse.button === Qt.RightButton)
                row.openMenu(mouse.x, mouse.y);
        }
        onClicked: mouse => {
            if (mouse.button !== Qt.LeftButton)
                return;
            const besidePointer = row.isMirrored ? -8 : 8;
            row.clickPosition = Qt.point(mouse.x + (row.isPlaying ? besidePointer : 0), mouse.y);
            if (row.isPlaying)
                row.seek(row.isMirrored ? row.width - mouse.x : mouse.x);
        }

        PlainToolTip {
            text: row.details
            isHovered: row.showsDetails && pointer.containsMouse && !badge.isHovered
            isPressed: pointer.pressed
        }
    }

    IconButton {
        anchors.left: parent.left
        anchors.leftMargin: TableColumns.margin
        anchors.verticalCenter: parent.verticalCenter
        symbol: row.isPlaying ? "speaker.wave.3.fill" : "speaker.wave.2.fill"
        symbolSize: 16
        tint: row.isPlaying ? Colors.accentText : Colors.mutedText
        toolTip: row.isPlaying ? qsTr("Stop listening") : qsTr("Click to listen and verify this song")
        description: row.name
        onClicked: row.play()

        MouseArea {
            anchors.fill: parent
            onPressed: mouse => mouse.accepted = (mouse.modifiers & Qt.ShiftModifier) !== 0
            onClicked: row.compare()
        }
    }

    // The badge's colours are legible on this surface, not on the row's.
    Rectangle {
        anchors.left: parent.left
        anchors.leftMargin: TableColumns.badgeX - TableColumns.badgePadding
        anchors.verticalCenter: parent.verticalCenter
        width: TableColumns.badgeWidth + 2 * TableColumns.badgePadding
        height: 20
        radius: 5
        color: Colors.background
    }

    SongBadge {
        id: badge
        anchors.left: parent.left
        anchors.leftMargin: TableColumns.badgeX - markWidth
        anchors.verticalCenter: parent.verticalCenter
        isOriginal: row.isOriginal
        furtherReason: row.furtherReason
    }

    Cell {
        anchors.left: parent.left
        anchors.leftMargin: TableColumns.badgeX + TableColumns.badgeWidth + TableColumns.badgePadding + TableColumns.spacing
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.nameEndOffset
        text: row.name
        font.pixelSize: 14
        font.weight: Font.Medium
    }
    Cell {
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.typeOffset - width
        width: TableColumns.typeWidth
        text: row.fileType
    }
    Cell {
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.durationOffset - width
        width: TableColumns.durationWidth
        horizontalAlignment: Text.AlignRight
        text: row.duration
    }
    Cell {
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.sizeOffset - width
        width: TableColumns.sizeWidth
        horizontalAlignment: Text.AlignRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        text: row.size
    }
    Cell {
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.folderOffset - width
        width: TableColumns.folderWidth
        elide: Text.ElideMiddle
        text: row.folder
        color: Colors.mutedText
    }

    IconButton {
        anchors.right: parent.right
        anchors.rightMargin: TableColumns.margin
        anchors.verticalCenter: parent.verticalCenter
        symbol: "trash.fill"
        symbolSize: 14
        tint: Colors.errorMark
        toolTip: qsTr("Delete this song")
        description: qsTr("Moves %1 to the Trash").arg(row.name)
        onClicked: row.remove()
    }

    component Cell: ElidedText {
        height: 40
        // Pixel sizes are integers: 13 instead of 12.5, and 14 instead of 13.5.
        font.pixelSize: 13
        color: Colors.textPrimary
        Accessible.ignored: true
    }
}
