import QtQuick
import QtQuick.Templates as T
import Sonavo

// A small button with an icon alone; its tooltip is also its accessible name.
T.AbstractButton {
    id: control

    required property string symbol
    required property string toolTip
    // What it will be done to, for screen readers.
    property string description
    property real symbolSize: 14
    property color tint: Colors.textSecondary

    implicitWidth: 26
    implicitHeight: 26
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.Button
    Accessible.name: toolTip
    Accessible.description: description
    Accessible.onPressAction: clicked()

    PlainToolTip {
        text: control.toolTip
        isHovered: control.hovered
        isPressed: control.down
    }

    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            symbol: control.symbol
            size: control.symbolSize
            color: control.tint
        }
    }
    background: Rectangle {
        radius: 6
        color: control.hovered ? Qt.alpha(control.tint, control.down ? 0.3 : 0.15) : "transparent"
    }
}
