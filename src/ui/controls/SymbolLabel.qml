import QtQuick
import Sonavo

// An icon with a text to its right.
Row {
    id: label

    property string symbol
    property real symbolSize: 16
    property string text
    property alias font: caption.font
    property color color: Colors.textPrimary
    property color symbolColor: color

    spacing: 6

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        visible: label.symbol !== ""
        symbol: label.symbol
        size: label.symbolSize
        color: label.symbolColor
    }

    PlainText {
        id: caption
        anchors.verticalCenter: parent.verticalCenter
        text: label.text
        color: label.color
    }
}
