import QtQuick.Controls.Basic
import Sonavo

Menu {
    id: menu

    // As wide as the widest of its items.
    implicitWidth: {
        let width = 220;
        for (let i = 0; i < count; ++i)
            width = Math.max(width, itemAt(i).implicitWidth);
        return width + leftPadding + rightPadding;
    }
    padding: 5
    // To the edges of the window.
    margins: 6

    delegate: ThemedMenuItem {}
    background: Card {
        radius: 8
        color: Colors.secondaryBackground
        border.width: Colors.outlineWidth
        border.color: Colors.border
        shadowRadius: 12
    }
}
