import QtQuick
import QtQuick.Templates as T
import Sonavo

// The header row of a group. The rows of its songs follow in the list.
T.AbstractButton {
    id: header

    required property string title
    // The song, and what cleaning the group up frees.
    required property string subtitle
    required property string freed
    required property int tint
    required property bool isExpanded
    // Whether this is the current row, and the list has keyboard focus.
    required property bool isCurrent
    readonly property color tintColor: Colors.groupTints[tint]

    height: 40
    padding: 4
    topPadding: 8
    bottomPadding: 0
    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: isExpanded
    Accessible.description: subtitle + ", " + freed + ", " + (isExpanded ? qsTr("expanded") : qsTr("collapsed"))
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.topMargin: 4
            color: Colors.section
        }
    }
    contentItem: Item {
        Rectangle {
            anchors.fill: parent
            anchors.bottomMargin: 1
            radius: 6
            color: Qt.alpha(header.tintColor, header.hovered ? 0.38 : 0.3)
            border.width: header.isCurrent ? 2 : 0
            border.color: Colors.focusRing

            SymbolLabel {
                id: label
                anchors.verticalCenter: parent.verticalCenter
                x: TableColumns.margin - 10
                symbol: header.isExpanded ? "chevron.down" : "chevron.right"
                symbolSize: 12
                spacing: 8
                text: header.title
                font.pixelSize: 12
                color: Colors.textPrimary
                symbolColor: Colors.textPrimary
            }
            ElidedText {
                anchors.left: label.right
                anchors.leftMargin: 14
                anchors.right: freed.left
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                text: header.subtitle
                font.pixelSize: 13
                font.weight: Font.DemiBold
                color: Colors.textPrimary
                Accessible.ignored: true
            }
            PlainText {
                id: freed
                anchors.right: parent.right
                anchors.rightMargin: TableColumns.margin
                anchors.verticalCenter: parent.verticalCenter
                text: header.freed
                font.pixelSize: 12
                color: Colors.textPrimary
                Accessible.ignored: true
            }
        }

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Qt.alpha(header.tintColor, 0.3)
        }
    }
}
