import QtQuick
import QtQuick.Layouts
import Sonavo

// The song that is playing, with a button that stops it, where no row shows it.
Rectangle {
    id: bar

    required property DuplicateViewModel viewModel

    visible: viewModel.currentlyPlayingSong !== undefined
    enabled: visible
    implicitWidth: row.implicitWidth + 24
    implicitHeight: row.implicitHeight + 12
    radius: 8
    color: Qt.alpha(Colors.accent, 0.15)
    border.width: Colors.outlineWidth
    border.color: Qt.alpha(Colors.accent, Colors.faintOutlineOpacity)

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 10
        spacing: 10

        SymbolIcon {
            symbol: "speaker.wave.3.fill"
            size: 16
            color: Colors.accent
        }

        ElidedText {
            id: name
            Layout.fillWidth: true
            text: bar.viewModel.playingName
            font.pixelSize: 14
            color: Colors.textPrimary
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("Playing %1", "%1 is the name of a song").arg(text)

            HoverHandler {
                id: hover
            }
            PlainToolTip {
                text: name.fullText
                isHovered: hover.hovered
            }
        }

        ModernButtonStyle {
            Layout.preferredWidth: Math.max(76, implicitWidth + 12)
            symbol: "stop.fill"
            symbolSize: 13
            text: qsTr("Stop", "the playback of a song")
            description: name.text
            onClicked: bar.viewModel.stopPlayback()
        }
    }
}
