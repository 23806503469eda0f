import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// The scroll bar of a Flickable.
ScrollBar {
    id: bar

    required property Flickable flickable

    policy: flickable.contentHeight > flickable.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    size: flickable.visibleArea.heightRatio
    position: flickable.visibleArea.yPosition
    minimumSize: 0.04
    padding: 3
    onPositionChanged: {
        if (pressed)
            flickable.contentY = flickable.originY + position * flickable.contentHeight;
    }

    contentItem: Rectangle {
        implicitWidth: 7
        radius: 3.5
        color: Qt.alpha(Colors.neutral, bar.pressed || bar.hovered ? 0.9 : 0.5)
    }
}
