import QtQuick
import QtQuick.Layouts
import Sonavo

// Name, version and purpose of the program.
ModalSheet {
    id: about

    title: qsTr("About Sonavo")
    onOpened: closeButton.forceActiveFocus(Qt.PopupFocusReason)

    contentItem: ColumnLayout {
        spacing: 10

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            symbol: "logo"
            size: 80
            color: "transparent"
        }

        PlainText {
            Layout.alignment: Qt.AlignHCenter
            text: qsTr("Sonavo %1").arg(Qt.application.version)
            font.pixelSize: 20
            font.bold: true
            color: Colors.textPrimary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        PlainText {
            Layout.alignment: Qt.AlignHCenter
            Layout.maximumWidth: 320
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: qsTr("Finds the songs that a music folder holds more than once. Everything happens on this "
                       + "computer, and nothing is ever deleted outright.")
            font.pixelSize: 14
            color: Colors.textSecondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ScaleButtonStyle {
            id: closeButton
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 6
            Layout.preferredWidth: Math.max(100, implicitWidth)
            text: qsTr("Close")
            font.pixelSize: 15
            onClicked: about.close()
        }
    }
}
