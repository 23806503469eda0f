import QtQuick
import Sonavo

// What can be done with all duplicates of one group.
ThemedMenu {
    id: menu

    required property DuplicateViewModel viewModel
    // The original of the group.
    property var original

    title: qsTr("Clean Up This Group")

    ThemedMenuItem {
        text: qsTr("Move Duplicates to Trash")
        enabled: !menu.viewModel.isCleaningUp
        onTriggered: menu.viewModel.trashGroup(menu.original)
    }
    ThemedMenuItem {
        text: qsTr("Move Duplicates to Folder…")
        enabled: !menu.viewModel.isCleaningUp
        onTriggered: menu.viewModel.moveGroupToFolder(menu.original)
    }
}
