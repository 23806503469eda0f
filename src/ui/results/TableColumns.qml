pragma Singleton

import QtQuick

// Geometry of the result columns in logical pixels, shared by the header and the rows. The name column takes the
// remaining width.
QtObject {
    id: columns

    readonly property real margin: 18
    readonly property real spacing: 8
    readonly property real playWidth: 26
    readonly property real typeWidth: 35
    readonly property real durationWidth: 42
    readonly property real sizeWidth: 50
    readonly property real folderWidth: 130
    readonly property real trashWidth: 26

    readonly property real badgeX: margin + playWidth + spacing
    readonly property font badgeFont: Qt.font({ pixelSize: 12, weight: Font.DemiBold })
    readonly property real badgeWidth: Math.ceil(badgeMetrics.advanceWidth)

    // Distances from the right edge of the row to the left edges of the columns, and to the end of the name.
    readonly property real trashOffset: margin + trashWidth
    readonly property real folderOffset: trashOffset + spacing + folderWidth
    readonly property real sizeOffset: folderOffset + spacing + sizeWidth
    readonly property real durationOffset: sizeOffset + spacing + durationWidth
    readonly property real typeOffset: durationOffset + spacing + typeWidth
    readonly property real nameEndOffset: typeOffset + spacing

    readonly property TextMetrics badgeMetrics: TextMetrics {
        font: columns.badgeFont
        text: "DUPLICATE"
    }
}
