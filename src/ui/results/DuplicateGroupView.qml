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
    // Offers what can be done with the group.
    signal openMenu(item: Item, x: real, y: real)

    readonly property color tintColor: Colors.groupTints[tint]
    readonly property string separator: qsTr(", ", "between the parts of a description")

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
    Accessible.description: subtitle + separator + freed + separator
                            + (isExpanded ? qsTr("expanded", "a group of songs") : qsTr("collapsed", "a group of songs"))
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
                anchors.left: parent.left
                anchors.leftMargin: TableColumns.margin - 10
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
                anchors.right: cleanUp.left
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                text: header.freed
                font.pixelSize: 12
                color: Colors.textPrimary
                Accessible.ignored: true
            }
            T.AbstractButton {
                id: cleanUp
                anchors.right: parent.right
                anchors.rightMargin: TableColumns.margin - 8
                anchors.verticalCenter: parent.verticalCenter
                implicitWidth: implicitContentWidth + 16
                implicitHeight: 24
                hoverEnabled: true
                focusPolicy: Qt.NoFocus
                Accessible.role: Accessible.ButtonMenu
                Accessible.name: cleanUpLabel.text
                Accessible.description: header.title + header.separator + header.subtitle
                Accessible.onPressAction: clicked()
                onClicked: header.openMenu(cleanUp, 0, height)

                contentItem: SymbolLabel {
                    id: cleanUpLabel
                    leftPadding: 8
                    symbol: "sparkles"
                    symbolSize: 12
                    text: qsTr("Clean Up This Group")
                    font.pixelSize: 12
                    color: Colors.textPrimary
                }
                background: Rectangle {
                    radius: 5
                    color: Qt.alpha(Colors.textPrimary, cleanUp.down ? 0.16 : cleanUp.hovered ? 0.08 : 0)
                }
            }
        }

        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: point => header.openMenu(header, point.position.x, point.position.y)
        }

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Qt.alpha(header.tintColor, 0.3)
        }
    }
}
