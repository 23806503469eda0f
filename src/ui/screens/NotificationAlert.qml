import QtQuick
import QtQuick.Layouts
import Sonavo

// Tells the user why the session could not do something.
ModalSheet {
    id: alert

    required property DuplicateViewModel viewModel

    title: qsTr("Notification")
    width: Math.min(440, parent ? parent.width - 40 : 440)
    visible: viewModel.showAlert
    onAboutToHide: viewModel.showAlert = false
    onOpened: {
        okButton.forceActiveFocus(Qt.PopupFocusReason);
        AccessibleAlert.raise(content);
    }

    contentItem: ColumnLayout {
        id: content
        spacing: 14

        Accessible.role: Accessible.AlertMessage
        Accessible.name: alert.title
        Accessible.description: message.text

        PlainText {
            Layout.fillWidth: true
            text: alert.title
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: Colors.textPrimary
        }

        PlainText {
            id: message
            Layout.fillWidth: true
            wrapMode: Text.Wrap
            text: alert.viewModel.alertMessage
            font.pixelSize: 14
            color: Colors.textPrimary
        }

        ScaleButtonStyle {
            id: okButton
            Layout.alignment: Qt.AlignRight
            Layout.preferredWidth: 100
            Layout.topMargin: 4
            isFilled: true
            text: qsTr("OK")
            font.pixelSize: 15
            onClicked: alert.close()
        }
    }
}
