import QtQuick
import QtQuick.Templates as T
import Sonavo

// A modal dialog in the middle of the window. Escape closes it. Its title is not shown, but read by screen readers.
T.Dialog {
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    // Over the tooltip of what the pointer rests on below.
    z: 1
    anchors.centerIn: T.Overlay.overlay
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    padding: 30

    background: Card {
        radius: 14
        color: Colors.sheet
        border.width: Colors.outlineWidth
        border.color: Colors.border
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.35)
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 150; easing.type: Easing.OutQuad }
        NumberAnimation { property: "scale"; from: Motion.isReduced ? 1 : 0.96; to: 1; duration: 150; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 120; easing.type: Easing.InQuad }
    }
}
