import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// The tooltip of the item that contains it, in place of the attached ToolTip.text, which shows rich text. The popup
// is created on demand: every row of a long list has several.
Loader {
    id: loader

    required property string text
    required property bool isHovered
    // Whether the item is pressed, if it is a button.
    property bool isPressed: false
    // A press hides the tooltip until the pointer comes again.
    property bool wasPressed: false

    anchors.fill: parent
    active: isHovered && enabled && !wasPressed && text !== ""
    onIsHoveredChanged: wasPressed = false
    onIsPressedChanged: wasPressed = wasPressed || isPressed

    // The Loader of Qt 6.4 cannot create a bound component.
    // qmllint disable unqualified
    sourceComponent: ToolTip {
        id: toolTip

        delay: 500
        visible: loader.active
        text: loader.text
        contentItem: PlainText {
            wrapMode: Text.Wrap
            text: toolTip.text
            font: toolTip.font
            color: toolTip.palette.toolTipText
        }
    }
    // qmllint enable unqualified
}
