pragma Singleton

import QtQuick

// Geometry of the result columns in logical pixels, shared by the header and the rows. The name column takes the
// remaining width.
QtObject {
    id: columns

    readonly property real margin: 18
    readonly property real spacing: 8
    readonly property real playWidth: 26
    readonly property font titleFont: Qt.font({ pixelSize: 12, weight: Font.DemiBold })
    readonly property font cellFont: Qt.font({ pixelSize: 13 })
    readonly property real titleIconWidth: 15
    // Each is as wide as its title and what it may hold.
    readonly property real typeWidth: columnWidth(35, typeTitle, typeText)
    readonly property real durationWidth: columnWidth(42, durationTitle, durationText)
    readonly property real sizeWidth: columnWidth(50, sizeTitle, sizeText)
    // Takes a share of a wide window.
    readonly property real folderWidth: Math.max(columnWidth(130, folderTitle, null), (rowWidth - 500) * 0.45)
    // What the list leaves free on both sides of a row.
    readonly property real listMargin: 2
    // Width of the rows.
    property real rowWidth: 0
    readonly property real trashWidth: 26

    readonly property real badgeX: margin + playWidth + spacing
    readonly property font badgeFont: Qt.font({ pixelSize: 12, weight: Font.DemiBold })
    readonly property real badgeWidth: Math.ceil(Math.max(originalTitle.advanceWidth, duplicateTitle.advanceWidth))
    // Of the surface behind the text.
    readonly property real badgePadding: 5

    // Distances from the right edge of the row to the left edges of the columns, and to the end of the name.
    readonly property real trashOffset: margin + trashWidth
    readonly property real folderOffset: trashOffset + spacing + folderWidth
    readonly property real sizeOffset: folderOffset + spacing + sizeWidth
    readonly property real durationOffset: sizeOffset + spacing + durationWidth
    readonly property real typeOffset: durationOffset + spacing + typeWidth
    readonly property real nameEndOffset: typeOffset + spacing

    function columnWidth(least, title, text) {
        return Math.ceil(Math.max(least, titleIconWidth + title.advanceWidth + 1, text ? text.advanceWidth + 1 : 0));
    }

    readonly property TextMetrics typeTitle: TextMetrics { font: columns.titleFont; text: qsTr("File Type") }
    readonly property TextMetrics durationTitle: TextMetrics { font: columns.titleFont; text: qsTr("Duration") }
    readonly property TextMetrics sizeTitle: TextMetrics { font: columns.titleFont; text: qsTr("File Size") }
    readonly property TextMetrics folderTitle: TextMetrics { font: columns.titleFont; text: qsTr("Folder Location") }
    readonly property TextMetrics typeText: TextMetrics { font: columns.cellFont; text: "FLAC" }
    readonly property TextMetrics durationText: TextMetrics { font: columns.cellFont; text: "0000:00" }
    readonly property TextMetrics sizeText: TextMetrics { font: columns.cellFont; text: qsTr("999.99 GB", "the longest size, for the width of its column") }

    readonly property TextMetrics originalTitle: TextMetrics { font: columns.badgeFont; text: qsTr("ORIGINAL", "a song") }
    readonly property TextMetrics duplicateTitle: TextMetrics { font: columns.badgeFont; text: qsTr("DUPLICATE", "a song") }
}
