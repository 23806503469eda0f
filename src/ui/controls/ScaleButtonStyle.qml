import QtQuick
import QtQuick.Templates as T
import Sonavo

// A button that shrinks while it is pressed and springs back.
T.Button {
    id: control

    property string symbol: ""
    property real symbolSize: 16
    property color tint: Colors.accent
    // For the default action.
    property bool isFilled: false
    readonly property color labelColor: isFilled ? Colors.textOnAccent : Colors.textPrimary

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 20
    verticalPadding: 8
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    scale: down ? 0.95 : 1
    opacity: enabled ? 1 : 0.5

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()

    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    Behavior on scale {
        enabled: !Motion.isReduced

        ResponseSpring {
            response: 0.3
            dampingFraction: 0.7
        }
    }

    contentItem: Item {
        implicitWidth: label.implicitWidth
        implicitHeight: label.implicitHeight

        SymbolLabel {
            id: label
            anchors.centerIn: parent
            spacing: 8
            symbol: control.symbol
            symbolSize: control.symbolSize
            symbolColor: control.isFilled ? control.labelColor : control.tint
            text: control.text
            font: control.font
            color: control.labelColor
        }
    }

    background: Rectangle {
        radius: 10
        color: control.isFilled ? Qt.lighter(control.tint, control.hovered ? 1.06 : 1)
                                : Qt.alpha(control.tint, control.hovered ? 0.12 : 0)
        border.width: Colors.outlineWidth
        border.color: control.tint

        FocusRing { control: control; radius: 12 }
    }
}
