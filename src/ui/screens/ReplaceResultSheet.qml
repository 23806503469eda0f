import QtQuick
import QtQuick.Layouts
import Sonavo

// Asks whether what another program has opened here may replace the result.
ModalSheet {
    id: sheet

    required property DuplicateViewModel viewModel
    readonly property string openQuestion: viewModel.openQuestion

    title: qsTr("Replace the List?")
    width: Math.min(460, parent ? parent.width - 40 : 460)
    visible: openQuestion !== ""
    // The text stays while the sheet goes.
    onOpenQuestionChanged: {
        if (openQuestion !== "")
            question.text = openQuestion;
    }
    onAboutToHide: viewModel.declineOpenedItems()
    onOpened: {
        cancelButton.forceActiveFocus(Qt.PopupFocusReason);
        AccessibleAlert.raise(content);
    }

    contentItem: ColumnLayout {
        id: content
        spacing: 14

        Accessible.role: Accessible.AlertMessage
        Accessible.name: sheet.title
        Accessible.description: question.text

        PlainText {
            Layout.fillWidth: true
            text: sheet.title
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: Colors.textPrimary
        }

        PlainText {
            id: question
            Layout.fillWidth: true
            wrapMode: Text.Wrap
            font.pixelSize: 14
            color: Colors.textPrimary
        }

        RowLayout {
            Layout.alignment: Qt.AlignRight
            Layout.topMargin: 4
            spacing: 16

            ScaleButtonStyle {
                id: cancelButton
                Layout.preferredWidth: Math.max(100, implicitWidth)
                text: qsTr("Cancel")
                font.pixelSize: 15
                tint: Colors.textSecondary
                onClicked: sheet.close()
            }

            ScaleButtonStyle {
                Layout.preferredWidth: Math.max(100, implicitWidth)
                isFilled: true
                text: qsTr("Scan", "a button that starts a scan")
                font.pixelSize: 15
                onClicked: sheet.viewModel.acceptOpenedItems()
            }
        }
    }
}
