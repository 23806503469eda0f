import QtQuick
import QtQuick.Layouts
import Sonavo

// The drop target of the welcome screen, highlighted while files are over it.
Rectangle {
    id: zone

    readonly property bool isDropTargeted: target.containsDrag

    signal filesDropped(urls: var)

    implicitHeight: stack.implicitHeight + 60
    radius: 16
    color: Qt.alpha(Colors.accent, isDropTargeted ? 0.18 : 0)
    border.width: isDropTargeted ? 2.5 : Math.max(1.5, Colors.outlineWidth)
    border.color: Colors.accent

    Behavior on color { ColorAnimation { duration: 300; easing.type: Easing.InOutQuad } }
    Behavior on border.width { NumberAnimation { duration: 300; easing.type: Easing.InOutQuad } }

    FileDropArea {
        id: target
        anchors.fill: parent
        onFilesDropped: urls => zone.filesDropped(urls)
    }

    ColumnLayout {
        id: stack
        anchors.centerIn: parent
        width: parent.width - 60
        spacing: 20

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            symbol: "arrow.down.circle"
            size: 24
            color: Colors.accent
        }

        PlainText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: qsTr("Drag & Drop Music Folder Here")
            font.pixelSize: 14
            font.weight: Font.Medium
            color: Colors.textPrimary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        PlainText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: qsTr("Drop a folder to scan for duplicate songs")
            font.pixelSize: 12
            color: Colors.hint
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
