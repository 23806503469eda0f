import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Sonavo

// A transient notice at the bottom of the window.
Card {
    id: toast

    required property string message
    required property int type
    // The user clicked the close button.
    signal closed

    readonly property color typeColor: type === DuplicateViewModel.Success ? Colors.success
                                     : type === DuplicateViewModel.Error ? Colors.error : Colors.info
    readonly property string typeSymbol: type === DuplicateViewModel.Success ? "checkmark.circle.fill"
                                       : type === DuplicateViewModel.Error ? "xmark.circle.fill"
                                                                            : "info.circle.fill"

    width: Math.min(500, row.implicitWidth + 32)
    height: row.implicitHeight + 24
    radius: 10
    color: Colors.toast
    border.width: 1
    border.color: Qt.alpha(typeColor, 0.5)
    shadowRadius: 14

    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: 12

        SymbolIcon {
            symbol: toast.typeSymbol
            size: 20
            color: toast.typeColor
        }

        PlainText {
            Layout.fillWidth: true
            wrapMode: Text.Wrap
            text: toast.message
            font.pixelSize: 14
            font.weight: Font.Medium
            color: Colors.textPrimary
            Accessible.ignored: true
        }

        T.AbstractButton {
            id: closeButton
            implicitWidth: 20
            implicitHeight: 20
            focusPolicy: Qt.TabFocus
            Accessible.role: Accessible.Button
            Accessible.name: qsTr("Close")
            Accessible.onPressAction: clicked()
            onClicked: toast.closed()

            contentItem: Item {
                SymbolIcon {
                    anchors.centerIn: parent
                    symbol: "xmark"
                    size: 12
                    color: closeButton.hovered ? Colors.textPrimary : Colors.textSecondary
                }
            }
            background: Item {
                FocusRing { control: closeButton }
            }
        }
    }
}
