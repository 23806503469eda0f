import QtQuick
import Sonavo

// A hint at what to do next.
Rectangle {
    id: bar

    required property DuplicateViewModel viewModel
    readonly property int duplicateCount: viewModel.duplicateCount

    implicitHeight: hints.implicitHeight + 40
    color: Colors.infoBar

    Column {
        id: hints
        anchors.left: parent.left
        anchors.right: scanAll.visible ? scanAll.left : button.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 20
        spacing: 4

        Hint {
            text: bar.duplicateCount === 0
                  ? qsTr("Drop a folder to scan for duplicate songs")
                  : bar.viewModel.isFurtherResult
                  ? qsTr("Found %n duplicate files \u2022 %1 \u2022 Use speaker icon to verify before deleting",
                         "%1 says how many more were found", bar.duplicateCount).arg(bar.viewModel.moreFoundDescription)
                  : qsTr("Found %n duplicate files \u2022 Use speaker icon to verify before deleting", "", bar.duplicateCount)
            color: bar.duplicateCount === 0 ? Colors.mutedText : Colors.textPrimary
        }

        Hint {
            visible: text !== ""
            text: bar.viewModel.scanAllNote
            color: Colors.textPrimary
        }
    }

    ModernButtonStyle {
        id: scanAll
        anchors.right: button.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        width: implicitWidth + 16
        // A toast that offers the same lies over it.
        visible: text !== "" && !(bar.viewModel.showToast && bar.viewModel.toastAction === text)
        // Out of sight it would keep the focus.
        enabled: visible && !bar.viewModel.showCleanUpProgress
        text: bar.viewModel.scanAllText
        description: bar.viewModel.scanAllNote
        onClicked: bar.viewModel.scanAllDropped()
    }

    FindMoreButton {
        id: button
        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        viewModel: bar.viewModel
    }

    component Hint: ElidedText {
        width: parent.width
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        font.pixelSize: 12
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
