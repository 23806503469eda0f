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
              ? qsTr("Found %n duplicate files \u2022 %1 \u2022 Use speaker icon to verify before deleting",
                     "%1 says how many more were found", bar.duplicateCount).arg(bar.viewModel.moreFoundDescription)
              : qsTr("Found %n duplicate files \u2022 Use speaker icon to verify before deleting", "", bar.duplicateCount)
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
