import QtQuick
import QtQuick.Layouts
import Sonavo

// The results of a scan: toolbar, list of groups or its replacement, and info bar.
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
