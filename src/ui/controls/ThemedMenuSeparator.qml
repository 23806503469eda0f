import QtQuick
import QtQuick.Controls.Basic
import Sonavo

MenuSeparator {
    contentItem: Rectangle {
        implicitHeight: 1
        color: Colors.border
    }
}
