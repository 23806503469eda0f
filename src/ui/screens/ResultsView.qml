import QtQuick
import QtQuick.Layouts
import Sonavo

// The results of a scan: toolbar, list of groups or its replacement, and info bar.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel
    readonly property bool hasSummary: viewModel.hasCleanUpSummary
    // Whether the filter hides no duplicate.
    readonly property bool showsAll: !list.visible || list.showsAll
    // Where the row is that has the keyboard; empty without one.
    readonly property rect currentRect: list.visible && list.currentRect.height > 0
                                        ? Qt.rect(0, area.y + list.currentRect.y, width, list.currentRect.height) : Qt.rect(0, 0, 0, 0)
    // Whether the summary is shown in place of a list that is left.
    property bool prefersSummary: false

    onHasSummaryChanged: prefersSummary = false

    // Not what had the focus last, which can be a button beside them.
    function focusContent() {
        (list.visible ? list : summary.visible ? summary : view).forceActiveFocus();
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ModernToolbar {
            Layout.fillWidth: true
            viewModel: view.viewModel
            showsAll: view.showsAll
            filterNote: list.visible ? list.filterNote : ""
        }

        FailureNotice {
            Layout.fillWidth: true
            visible: list.visible && view.viewModel.cleanUpFailureCount > 0
            viewModel: view.viewModel
            onShow: view.prefersSummary = true
        }

        Item {
            id: area
            Layout.fillWidth: true
            Layout.fillHeight: true

            DuplicateList {
                id: list
                anchors.fill: parent
                visible: !isEmpty && !view.prefersSummary
                focus: visible
                viewModel: view.viewModel
            }

            CleanUpSummaryView {
                id: summary
                anchors.fill: parent
                visible: view.hasSummary && !list.visible
                focus: visible
                viewModel: view.viewModel
                hasList: !list.isEmpty
                onBack: view.prefersSummary = false
            }

            NoDuplicatesFoundView {
                anchors.fill: parent
                visible: !list.visible && !summary.visible
                viewModel: view.viewModel
            }
        }

        BottomInfoBar {
            Layout.fillWidth: true
            viewModel: view.viewModel
        }
    }
}
