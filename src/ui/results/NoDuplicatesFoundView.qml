import QtQuick
import Sonavo

// Takes the place of the list when there are no duplicates.
Rectangle {
    id: view

    required property DuplicateViewModel viewModel

    property real iconScale
    property real iconOpacity

    color: Colors.background

    // The badge grows whenever the view appears.
    ParallelAnimation {
        running: view.visible

        NumberAnimation {
            target: view
            property: "iconScale"
            from: Motion.isReduced ? 1 : 0.5
            to: 1
            duration: 800
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            target: view
            property: "iconOpacity"
            from: 0
            to: 1
            duration: 800
            easing.type: Easing.OutCubic
        }
    }

    Column {
        anchors.centerIn: parent
        padding: 20
        spacing: 16

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 110
            height: 110
            radius: 55
            color: Qt.alpha(Colors.accent, 0.15)
            scale: view.iconScale
            opacity: view.iconOpacity

            Rectangle {
                anchors.centerIn: parent
                width: 90
                height: 90
                radius: 45
                color: Colors.accent

                SymbolIcon {
                    anchors.centerIn: parent
                    symbol: "checkmark"
                    size: 40
                    color: Colors.background
                }
            }
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Perfect! No Duplicates Found")
            font.pixelSize: 24
            font.weight: Font.DemiBold
            color: Colors.textPrimary
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Your music library is clean and organized")
            font.pixelSize: 16
            color: Colors.textSecondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            topPadding: 4
            spacing: 12

            Pill {
                symbol: "music.note"
                text: qsTr("%n songs scanned", "", view.viewModel.songCount)
            }
            Pill {
                symbol: "sparkles"
                text: qsTr("All unique", "songs")
            }
        }

        FindMoreButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !view.viewModel.isFurtherResult
            viewModel: view.viewModel
        }
    }

    component Pill: Rectangle {
        id: pill

        property alias symbol: label.symbol
        property alias text: label.text

        implicitWidth: label.implicitWidth + 28
        implicitHeight: label.implicitHeight + 14
        radius: implicitHeight / 2
        color: Colors.secondaryBackground
        border.width: Colors.outlineWidth
        border.color: Colors.border

        SymbolLabel {
            id: label
            anchors.centerIn: parent
            symbolSize: 14
            symbolColor: Colors.accent
            font.pixelSize: 14
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
