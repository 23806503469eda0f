import QtQuick
import Sonavo

// Says above a list of duplicates that the last clean-up, which was stopped, could not move some files.
Rectangle {
    id: notice

    required property DuplicateViewModel viewModel
    // The user wants to see them.
    signal show

    implicitHeight: 40
    color: Qt.alpha(Colors.error, 0.12)

    CleanUpFailuresModel {
        id: failures
        viewModel: notice.viewModel
    }

    SymbolLabel {
        anchors.left: parent.left
        anchors.leftMargin: 18
        anchors.verticalCenter: parent.verticalCenter
        symbol: "exclamationmark.triangle.fill"
        symbolColor: Colors.error
        text: failures.title
        font.pixelSize: 13
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ModernButtonStyle {
        anchors.right: parent.right
        anchors.rightMargin: 18
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(76, implicitWidth + 12)
        text: qsTr("Show", "the files that could not be moved")
        description: failures.title
        onClicked: notice.show()
    }
}
