import QtQuick.Controls.Basic
import Sonavo

Menu {
    id: menu

    implicitWidth: 230
    padding: 5

    delegate: ThemedMenuItem {}
    background: Card {
        radius: 8
        color: Colors.secondaryBackground
        border.width: Colors.outlineWidth
        border.color: Colors.border
        shadowRadius: 12
    }
}
