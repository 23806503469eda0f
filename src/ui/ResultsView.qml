import QtQuick
import Sonavo

// What a scan found.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel

    ListView {
        anchors.fill: parent
        anchors.margins: 20
        model: view.viewModel.duplicateGroups
        delegate: Text {
            required property var modelData
            text: modelData.original.name + " (" + (modelData.duplicates.length + 1) + ")"
            color: Colors.textPrimary
        }
    }
}
