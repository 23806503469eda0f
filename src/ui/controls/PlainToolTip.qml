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
    // A press, or a menu that opens, hides the tooltip until the pointer comes again.
    property bool isDismissed: false

    anchors.fill: parent
    active: isHovered && enabled && !isDismissed && text !== ""
    onIsHoveredChanged: isDismissed = isPressed
    onIsPressedChanged: isDismissed = isDismissed || isPressed

    // The Loader of Qt 6.4 cannot create a bound component.
    // qmllint disable unqualified
    sourceComponent: ToolTip {
        id: toolTip

        delay: 500
        // Without the wrapping, Qt takes several lines for one.
        contentWidth: Math.min(lines.implicitWidth, loader.Window.width - 40)
        // For screen readers.
        text: loader.text
        // Only now that everything else is set: Qt does not always take a text that comes during the delay.
        Component.onCompleted: open()
        // As every menu does that opens.
        Connections {
            target: loader.Window.window
            function onActiveFocusItemChanged() {
                loader.isDismissed = true;
            }
        }
        // The delay can end between this and the deletion, when there is no window any more.
        Component.onDestruction: close()
        contentItem: PlainText {
            wrapMode: Text.Wrap
            text: loader.text
            font.pixelSize: 12
            color: Colors.textPrimary
        }
        PlainText {
            id: lines
            visible: false
            text: loader.text
            font.pixelSize: 12
        }
        background: Rectangle {
            radius: 6
            color: Colors.secondaryBackground
            border.width: Colors.outlineWidth
            border.color: Colors.border
        }
    }
    // qmllint enable unqualified
}
