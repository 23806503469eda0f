import QtQuick
import Sonavo

// A hint at what to do next.
Rectangle {
    id: bar

    required property int duplicateCount

    implicitHeight: hint.implicitHeight + 40
    color: Colors.infoBar

    PlainText {
        id: hint
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 20
        elide: Text.ElideRight
        text: bar.duplicateCount === 0
              ? qsTr("Drop a folder to scan for duplicate songs")
              : qsTr("Found %1 duplicate files \u2022 Use speaker icon to verify before deleting").arg(bar.duplicateCount)
        font.pixelSize: 12
        color: bar.duplicateCount === 0 ? Colors.textSecondary : Colors.textPrimary
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
