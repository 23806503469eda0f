import QtQuick
import QtQuick.Controls.Basic
import Sonavo

ToolTip {
    id: tip

    delay: 600
    padding: 8

    contentItem: Text {
        text: tip.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 12
        color: Colors.textPrimary
    }
    background: Rectangle {
        radius: 6
        color: Colors.secondaryBackground
        border.width: 1
        border.color: Colors.border
    }
}
