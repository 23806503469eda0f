import QtQuick
import QtQuick.Layouts
import Sonavo

// Tells the user why the session could not do something.
ModalSheet {
    id: alert

    required property DuplicateViewModel viewModel

    title: qsTr("Notification")
    width: Math.min(520, parent ? parent.width - 40 : 520)
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

        Flickable {
            id: scroll

            function scrollBy(distance) {
                contentY = Math.max(0, Math.min(contentY + distance, contentHeight - height));
            }

            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(message.implicitHeight, alert.parent ? alert.parent.height - 220 : 400)
            contentHeight: message.implicitHeight
            clip: true
            boundsBehavior: Flickable.StopAtBounds

            PlainText {
                id: message
                width: scroll.width - 14
                wrapMode: Text.Wrap
                text: alert.viewModel.alertMessage
                font.pixelSize: 14
                color: Colors.textPrimary
            }

            ThinScrollBar {
                parent: scroll
                flickable: scroll
                anchors.top: parent.top
                anchors.bottom: parent.bottom
                anchors.right: parent.right
            }
        }

        ScaleButtonStyle {
            id: okButton
            Layout.alignment: Qt.AlignRight
            Layout.preferredWidth: Math.max(100, implicitWidth)
            Layout.topMargin: 4
            isFilled: true
            text: qsTr("OK")
            font.pixelSize: 15
            onClicked: alert.close()
            Keys.onUpPressed: scroll.scrollBy(-40)
            Keys.onDownPressed: scroll.scrollBy(40)
        }
    }
}
