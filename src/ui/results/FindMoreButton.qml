import QtQuick
import Sonavo

// Looks further, or goes back to what the scan has found.
ModernButtonStyle {
    id: button

    required property DuplicateViewModel viewModel

    width: Math.max(190, implicitWidth + 12)
    enabled: !viewModel.showCleanUpProgress
    symbol: viewModel.isFurtherResult ? "arrow.uturn.backward" : "plus.magnifyingglass"
    symbolSize: 15
    text: viewModel.isFurtherResult ? qsTr("Return to First Result") : qsTr("Find More Duplicates")
    description: viewModel.isFurtherResult ? qsTr("Shows the duplicates that the scan has found")
                                           : qsTr("Compares every song with every other, in every script")
    onClicked: viewModel.isFurtherResult ? viewModel.returnToFirstResult() : viewModel.findMore()
}
