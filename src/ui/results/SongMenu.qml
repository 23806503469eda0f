import QtQuick
import Sonavo

// The context menu of a song.
ThemedMenu {
    id: menu

    required property DuplicateViewModel viewModel
    property var song
    readonly property bool isPlaying: viewModel.currentlyPlayingSong !== undefined && song !== undefined
                                      && viewModel.currentlyPlayingSong.id === song.id

    signal remove(song: var)

    ThemedMenuItem {
        text: menu.isPlaying ? qsTr("Stop") : qsTr("Listen")
        onTriggered: menu.viewModel.togglePlayback(menu.song)
    }
    ThemedMenuSeparator {}
    ThemedMenuItem {
        text: qsTr("Show in Folder")
        onTriggered: menu.viewModel.revealSong(menu.song)
    }
    ThemedMenuItem {
        text: qsTr("Copy Path")
        onTriggered: menu.viewModel.copyPath(menu.song)
    }
    ThemedMenuSeparator {}
    ThemedMenuItem {
        text: qsTr("Move to Trash")
        enabled: !menu.viewModel.isCleaningUp
        onTriggered: menu.remove(menu.song)
    }
}
