import QtQuick
import QtQuick.Templates as T
import Sonavo

// Outlines a control that has keyboard focus.
Rectangle {
    required property T.Control control

    anchors.fill: parent
    anchors.margins: -3
    color: "transparent"
    radius: 10
    border.width: 2
    border.color: Colors.focusRing
    visible: control.visualFocus
}
