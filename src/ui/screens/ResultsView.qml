import QtQuick
import QtQuick.Layouts
import Sonavo

// The result of a scan: what can be done with it, the groups or the good news, and a hint.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ModernToolbar {
            Layout.fillWidth: true
            viewModel: view.viewModel
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            DuplicateList {
                id: list
                anchors.fill: parent
                visible: count > 0
                focus: visible
                viewModel: view.viewModel
            }

            NoDuplicatesFoundView {
                anchors.fill: parent
                visible: !list.visible
                songCount: view.viewModel.songCount
            }
        }

        BottomInfoBar {
            Layout.fillWidth: true
            duplicateCount: view.viewModel.duplicateCount
        }
    }
}
