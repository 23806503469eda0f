import QtQuick
import QtQuick.Layouts
import Sonavo

// How far a clean-up, an undo or looking further is, with a button that stops it. The screen below can still be scrolled and listened to.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel

    visible: viewModel.showCleanUpProgress
    // Out of sight it would keep the focus.
    enabled: visible
    onVisibleChanged: {
        if (visible)
            stopButton.forceActiveFocus(Qt.PopupFocusReason);
    }

    // A screen reader would fall behind the number.
    Timer {
        interval: 5000
        running: view.visible
        repeat: true
        triggeredOnStart: true
        onTriggered: message.spokenText = message.text
    }

    // Short enough jobs end before they can be seen.
    NumberAnimation on opacity {
        running: view.visible
        from: 0
        to: 1
        duration: 200
        easing.type: Easing.InQuad
    }

    Shortcut {
        sequence: Shortcuts.keyOf(Shortcuts.Close)
        // Two active shortcuts would cancel each other; a toast lies on top.
        enabled: view.visible && !view.viewModel.showToast
        onActivated: view.viewModel.stopCleanUp()
    }

    Rectangle {
        anchors.fill: parent
        color: Qt.alpha(Colors.background, 0.6)
    }

    Card {
        anchors.centerIn: parent
        width: 400
        height: stack.implicitHeight + 48
        radius: 18
        color: Colors.card
        border.width: Colors.outlineWidth
        border.color: Colors.border

        // Keeps the pointer from what is below.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.AllButtons
            onWheel: wheel => wheel.accepted = true
        }

        ColumnLayout {
            id: stack
            anchors.centerIn: parent
            width: parent.width - 48
            spacing: 14

            PlainText {
                id: message

                property string spokenText

                Layout.fillWidth: true
                wrapMode: Text.Wrap
                text: view.viewModel.cleanUpMessage
                font.pixelSize: 17
                font.weight: Font.DemiBold
                color: Colors.textPrimary
                Accessible.role: Accessible.Notification
                Accessible.name: spokenText
            }

            ThinProgressBar {
                Layout.fillWidth: true
                implicitHeight: 8
                value: view.viewModel.cleanUpFraction
                color: Colors.accent
                trackColor: Colors.track
                Accessible.role: Accessible.ProgressBar
                Accessible.name: qsTr("Progress")
                Accessible.description: qsTr("%1%", "a percentage").arg(percentage)
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                PlainText {
                    Layout.fillWidth: true
                    wrapMode: Text.Wrap
                    text: view.viewModel.cleanUpTimeLeft
                    font.pixelSize: 13
                    color: Colors.textSecondary
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                ScaleButtonStyle {
                    id: stopButton
                    Layout.preferredWidth: Math.max(130, implicitWidth)
                    enabled: !view.viewModel.isCleanUpStopping
                    symbol: "stop.fill"
                    symbolSize: 13
                    text: view.viewModel.isCleanUpStopping ? qsTr("Stopping\u2026", "a clean-up, an undo or a search") : qsTr("Stop", "a clean-up, an undo or a search")
                    font.pixelSize: 14
                    focus: true
                    onClicked: view.viewModel.stopCleanUp()
                }
            }
        }
    }
}
