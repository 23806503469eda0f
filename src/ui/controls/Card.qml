import QtQuick
import Sonavo

// A raised surface with a soft shadow.
Item {
    id: card

    property alias color: surface.color
    property alias radius: surface.radius
    property alias border: surface.border
    property alias shadowRadius: shadow.blurRadius
    default property alias content: surface.data

    SoftShadow {
        id: shadow
        anchors.fill: parent
        anchors.margins: -blurRadius
        blurRadius: 25
        strength: 0.2
    }

    // Keeps the shadow from showing through a translucent surface.
    Rectangle {
        anchors.fill: parent
        radius: surface.radius
        color: Colors.background
    }

    Rectangle {
        id: surface
        anchors.fill: parent
    }
}
