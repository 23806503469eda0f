import QtQuick
import Sonavo

// The context menu of a song.
ThemedMenu {
    id: menu

    required property DuplicateViewModel viewModel
    // Whether the list shows every group. Otherwise what would change hidden ones is disabled.
    required property bool showsAll
    property var song
    property bool isOriginal
    readonly property bool isPlaying: viewModel.currentlyPlayingSong !== undefined && song !== undefined
                                      && viewModel.currentlyPlayingSong.id === song.id

    // Whether another song of the group is playing.
    property bool canCompare

    signal keep(song: var)
    signal remove(song: var)

    ThemedMenuItem {
        text: menu.isPlaying ? qsTr("Stop", "the playback of a song") : qsTr("Listen", "to a song")
        key: Shortcuts.keyOf(Shortcuts.Listen)
        onTriggered: menu.viewModel.togglePlayback(menu.song)
    }
    ThemedMenuItem {
        text: Shortcuts.textOf(Shortcuts.Compare)
        key: Shortcuts.keyOf(Shortcuts.Compare)
        enabled: menu.canCompare
        onTriggered: menu.viewModel.comparePlayback(menu.song)
    }
    ThemedMenuSeparator {}
    ThemedMenuItem {
        text: Shortcuts.textOf(Shortcuts.KeepThisOne)
        key: Shortcuts.keyOf(Shortcuts.KeepThisOne)
        enabled: !menu.isOriginal && !menu.viewModel.isCleaningUp
        onTriggered: menu.keep(menu.song)
    }
    ThemedMenuItem {
        text: qsTr("Keep Copies in This Folder")
        enabled: menu.showsAll && !menu.viewModel.isCleaningUp
        onTriggered: menu.viewModel.keepCopiesInFolderOf(menu.song)
    }
    ThemedMenuItem {
        text: qsTr("Keep Lossless Copies")
        enabled: menu.showsAll && !menu.viewModel.isCleaningUp
        onTriggered: menu.viewModel.keepLosslessCopies()
    }
    ThemedMenuItem {
        text: qsTr("Not a Duplicate")
        enabled: !menu.viewModel.isCleaningUp
        onTriggered: menu.viewModel.excludeFromDuplicates(menu.song)
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
        text: Shortcuts.textOf(Shortcuts.MoveToTrash)
        key: Shortcuts.keyOf(Shortcuts.MoveToTrash)
        enabled: !menu.viewModel.isCleaningUp
        onTriggered: menu.remove(menu.song)
    }
}
