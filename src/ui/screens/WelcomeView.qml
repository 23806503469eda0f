import QtQuick
import QtQuick.Layouts
import Sonavo

// The screen before the first import, with a drop zone and a button to choose music.
FocusScope {
    id: view

    // The user wants to choose music.
    signal addSongs
    signal filesDropped(urls: var)

    Rectangle {
        anchors.fill: parent
        color: Colors.background
    }

    Card {
        anchors.centerIn: parent
        width: Math.min(500, view.width - 80)
        height: stack.implicitHeight + 72
        radius: 24
        color: Qt.alpha(Colors.card, 0.9)
        border.width: Colors.outlineWidth
        border.color: Colors.border

        ColumnLayout {
            id: stack
            anchors.centerIn: parent
            width: parent.width - 72
            spacing: 16

            // Not an Image: as of Qt 6.4, the software renderer leaks its texture.
            SymbolIcon {
                Layout.alignment: Qt.AlignHCenter
                symbol: "logo"
                size: 80
                color: "transparent"
            }

            PlainText {
                Layout.fillWidth: true
                Layout.topMargin: 4
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: qsTr("Welcome to Sonavo")
                font.pixelSize: 28
                font.bold: true
                color: Colors.textPrimary
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            PlainText {
                Layout.fillWidth: true
                Layout.topMargin: -8
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: qsTr("Find and remove duplicate songs from your music library")
                font.pixelSize: 20
                color: Colors.textSecondary
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            DropZone {
                Layout.fillWidth: true
                Layout.topMargin: 4
                onFilesDropped: urls => view.filesDropped(urls)
            }

            ScaleButtonStyle {
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: Math.max(180, implicitWidth)
                Layout.preferredHeight: 44
                symbol: "folder"
                symbolSize: 16
                text: qsTr("Browse Files")
                font.pixelSize: 17
                font.weight: Font.DemiBold
                focus: true
                onClicked: view.addSongs()
            }
        }
    }
}
