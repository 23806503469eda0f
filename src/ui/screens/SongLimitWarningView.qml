import QtQuick
import QtQuick.Layouts
import Sonavo

// Asks the user to confirm a large import.
ModalSheet {
    id: sheet

    required property DuplicateViewModel viewModel
    required property bool isPresented
    // Number of URLs to be imported, and of songs in the session.
    required property int pendingCount
    required property int currentCount
    // The user confirmed the import.
    signal confirm
    // The sheet was closed, whatever the answer.
    signal dismissed

    title: qsTr("Large Library Detection")
    visible: isPresented
    onAboutToHide: dismissed()
    onOpened: addButton.forceActiveFocus(Qt.PopupFocusReason)

    contentItem: ColumnLayout {
        spacing: 18

        SymbolLabel {
            symbol: "chart.bar.doc.horizontal"
            symbolSize: 24
            symbolColor: Colors.accent
            spacing: 10
            text: sheet.title
            font.pixelSize: 20
            font.bold: true
        }

        PlainText {
            text: qsTr("Adding a large number of songs may affect performance.")
            font.pixelSize: 14
            color: Colors.textSecondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: recommendations.implicitHeight + 40
            implicitWidth: recommendations.implicitWidth + 40
            radius: 10
            color: Colors.secondaryBackground
            border.width: Colors.outlineWidth
            border.color: Colors.border

            Column {
                id: recommendations
                anchors.left: parent.left
                anchors.leftMargin: 20
                y: 20
                spacing: 6

                PlainText {
                    anchors.left: parent.left
                    bottomPadding: 4
                    text: qsTr("Performance Recommendations:")
                    font.pixelSize: 15
                    font.weight: Font.DemiBold
                    color: Colors.textPrimary
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                Repeater {
                    model: [
                        qsTr("Best Performance: Up to 5000 songs"),
                        qsTr("Good Performance: 5000-10000 songs"),
                        qsTr("Maximum per session: 500000 songs")
                    ]

                    PlainText {
                        required property string modelData
                        anchors.left: parent ? parent.left : undefined
                        text: modelData
                        font.pixelSize: 14
                        color: Colors.textPrimary
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }
                }
            }
        }

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 16

            ScaleButtonStyle {
                Layout.preferredWidth: Math.max(120, implicitWidth)
                Layout.preferredHeight: 42
                text: qsTr("Cancel")
                font.pixelSize: 15
                tint: Colors.neutral
                onClicked: sheet.close()
            }

            ScaleButtonStyle {
                id: addButton
                Layout.preferredWidth: Math.max(160, implicitWidth)
                Layout.preferredHeight: 42
                isFilled: true
                text: qsTr("Add Anyway")
                font.pixelSize: 15
                onClicked: {
                    sheet.viewModel.startScan(sheet.viewModel.pendingImportURLs);
                    sheet.confirm();
                    sheet.close();
                }
            }
        }
    }
}
