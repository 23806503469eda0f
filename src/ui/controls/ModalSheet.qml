import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Sonavo

// A modal popup in the middle of the window. Escape closes it.
Popup {
    id: sheet

    // Accessible name.
    required property string title

    anchors.centerIn: T.Overlay.overlay
    modal: true
    focus: true
    closePolicy: Popup.CloseOnEscape
    padding: 30

    // A Popup is no Item: screen readers see the item that shows it.
    onAboutToShow: {
        contentItem.parent.Accessible.role = Accessible.Dialog;
        contentItem.parent.Accessible.name = title;
    }

    background: Card {
        radius: 14
        color: Colors.sheet
        border.width: 1
        border.color: Colors.border
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.35)
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 150; easing.type: Easing.OutQuad }
        NumberAnimation { property: "scale"; from: 0.96; to: 1; duration: 150; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 120; easing.type: Easing.InQuad }
    }
}
