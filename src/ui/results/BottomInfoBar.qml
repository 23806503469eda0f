import QtQuick
import Sonavo

// A hint at what to do next.
Rectangle {
    id: bar

    required property DuplicateViewModel viewModel
    readonly property int duplicateCount: viewModel.duplicateCount

    implicitHeight: hint.implicitHeight + 40
    color: Colors.infoBar

    PlainText {
        id: hint
        anchors.left: parent.left
        anchors.right: button.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 20
        elide: Text.ElideRight
        text: bar.duplicateCount === 0
              ? qsTr("Drop a folder to scan for duplicate songs")
              : bar.viewModel.isFurtherResult
              ? qsTr("Found %1 duplicate files \u2022 %2 \u2022 Use speaker icon to verify before deleting").arg(bar.duplicateCount).arg(bar.viewModel.moreFoundDescription)
              : qsTr("Found %1 duplicate files \u2022 Use speaker icon to verify before deleting").arg(bar.duplicateCount)
        font.pixelSize: 12
        color: bar.duplicateCount === 0 ? Colors.mutedText : Colors.textPrimary
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    FindMoreButton {
        id: button
        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        viewModel: bar.viewModel
    }
}
