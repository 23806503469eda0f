import QtQuick
import QtQuick.Templates as T
import Sonavo

// A button that dims and shrinks its label slightly while it is pressed.
T.Button {
    id: control

    property string symbol: ""
    property real symbolSize: 16
    property color tint: Colors.accent
    // What the button will do, as a tooltip and for screen readers.
    property string description: ""

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 4
    verticalPadding: 6
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    font.pixelSize: 13

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: description
    Accessible.onPressAction: if (enabled) clicked()

    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    PlainToolTip {
        text: control.description
        isHovered: control.hovered
        isPressed: control.down
    }

    contentItem: Item {
        id: content

        readonly property real iconWidth: icon.visible ? icon.width + label.spacing : 0

        implicitWidth: iconWidth + caption.implicitWidth
        implicitHeight: label.implicitHeight
        opacity: !control.enabled ? 0.4 : control.down ? 0.8 : 1
        scale: control.down ? 0.95 : 1

        Behavior on opacity { NumberAnimation { duration: 200; easing.type: Easing.InOutQuad } }
        Behavior on scale { enabled: !Motion.isReduced; NumberAnimation { duration: 200; easing.type: Easing.InOutQuad } }

        Row {
            id: label
            anchors.centerIn: parent
            spacing: 4

            SymbolIcon {
                id: icon
                anchors.verticalCenter: parent.verticalCenter
                visible: control.symbol !== ""
                symbol: control.symbol
                size: control.symbolSize
                color: control.tint
            }

            ElidedText {
                id: caption
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, control.availableWidth - content.iconWidth)
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 9
                text: control.text
                font: control.font
                color: Colors.textPrimary
            }
        }
    }

    background: Rectangle {
        radius: 8
        color: control.hovered && control.enabled ? Qt.alpha(control.tint, 0.12) : "transparent"
        border.width: Colors.outlineWidth
        border.color: Qt.alpha(control.tint, control.enabled ? 1 : 0.4)

        FocusRing { control: control }
    }
}
