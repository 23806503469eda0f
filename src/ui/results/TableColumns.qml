pragma Singleton

import QtQuick

// The columns of the results: widths and gaps in logical pixels, shared by the header and the rows so that they
// line up. The name takes what the others leave.
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

    // Distances of the other columns' left edges from the row's right edge.
    readonly property real trashOffset: margin + trashWidth
    readonly property real folderOffset: trashOffset + spacing + folderWidth
    readonly property real sizeOffset: folderOffset + spacing + sizeWidth
    readonly property real durationOffset: sizeOffset + spacing + durationWidth
    readonly property real typeOffset: durationOffset + spacing + typeWidth
    readonly property real nameEnd: typeOffset + spacing

    readonly property TextMetrics badgeMetrics: TextMetrics {
        font: columns.badgeFont
        text: "DUPLICATE"
    }
}
