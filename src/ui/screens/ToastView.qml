import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Sonavo

// A transient notice at the bottom of the window.
Card {
    id: toast

    required property string message
    required property int type
    // Text of a button before the close button; empty without one.
    required property string action
    required property bool canAct
    // The user clicked the close button.
    signal closed
    // The user clicked the other one.
    signal acted

    // Whether the pointer or the keyboard focus is on it.
    readonly property bool isInUse: pointer.hovered || actionButton.activeFocus || closeButton.activeFocus

    readonly property color typeColor: type === DuplicateViewModel.Success ? Colors.success
                                     : type === DuplicateViewModel.Error ? Colors.error : Colors.info
    readonly property string typeSymbol: type === DuplicateViewModel.Success ? "checkmark.circle.fill"
                                       : type === DuplicateViewModel.Error ? "xmark.circle.fill"
                                                                            : "info.circle.fill"

    width: Math.min(500, row.implicitWidth + 32)
    height: row.implicitHeight + 24
    radius: 10
    color: Colors.toast
    border.width: Colors.outlineWidth
    border.color: Qt.alpha(typeColor, Colors.faintOutlineOpacity)
    shadowRadius: 14

    Accessible.role: Accessible.Notification
    Accessible.name: message

    HoverHandler {
        id: pointer
    }

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

        ToastButton {
            id: actionButton
            visible: toast.action !== ""
            // Out of sight it would keep the focus.
            enabled: toast.canAct && visible
            text: toast.action
            onClicked: toast.acted()

            contentItem: PlainText {
                text: actionButton.text
                font.pixelSize: 14
                font.weight: Font.DemiBold
                color: Colors.accentText
                Accessible.ignored: true
            }
        }

        ToastButton {
            id: closeButton
            implicitWidth: 20
            implicitHeight: 20
            padding: 0
            text: qsTr("Close")
            onClicked: toast.closed()

            contentItem: Item {
                SymbolIcon {
                    anchors.centerIn: parent
                    symbol: "xmark"
                    size: 12
                    color: closeButton.hovered ? Colors.textPrimary : Colors.textSecondary
                }
            }
        }
    }

    component ToastButton: T.AbstractButton {
        id: button

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        padding: 4
        opacity: enabled ? 1 : 0.5
        hoverEnabled: true
        focusPolicy: Qt.TabFocus
        Accessible.role: Accessible.Button
        Accessible.name: text
        Accessible.onPressAction: if (enabled) clicked()
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

        background: Item {
            FocusRing { control: button }
        }
    }
}
