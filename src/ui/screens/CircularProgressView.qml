import QtQuick
import QtQuick.Layouts
import Sonavo

// The progress of a scan, with a button that cancels it.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel
    // The user cancels the scan.
    signal stop

    // What the scan has published, as it is shown: taken over some times a second, since a text takes as long to lay
    // out as dozens of files to read.
    property real progress
    property string message
    property int foundFiles

    property real rotationAngle

    Timer {
        interval: 50
        running: view.visible
        repeat: true
        triggeredOnStart: true
        onTriggered: {
            view.progress = view.viewModel.progress;
            view.message = view.viewModel.scanMessage;
            view.foundFiles = view.viewModel.foundFiles;
        }
    }

    // Turns the gradient once whenever the view appears.
    NumberAnimation on rotationAngle {
        running: view.visible && !Motion.isReduced
        from: 0
        to: 360
        duration: 2000
    }

    // A folder of many files stays at zero for a while.
    SequentialAnimation {
        running: view.visible && view.progress === 0 && !Motion.isReduced
        loops: Animation.Infinite
        onStopped: ring.opacity = 1

        NumberAnimation { target: ring; property: "opacity"; to: 0.4; duration: 900; easing.type: Easing.InOutQuad }
        NumberAnimation { target: ring; property: "opacity"; to: 1; duration: 900; easing.type: Easing.InOutQuad }
    }

    Rectangle {
        anchors.fill: parent
        color: Colors.background
    }

    Card {
        anchors.centerIn: parent
        width: 360
        height: 400
        radius: 30
        color: Qt.alpha(Colors.card, 0.9)
        border.width: 2
        border.color: Colors.border

        ColumnLayout {
            anchors.fill: parent
            anchors.margins: 30
            spacing: 10

            Item {
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: 210
                Layout.preferredHeight: 210

                ProgressRing {
                    id: ring
                    anchors.fill: parent
                    value: view.progress
                    gradientRotation: view.rotationAngle
                    lineWidth: 15
                    trackColor: Colors.track
                    edgeColor: Colors.textSecondary

                    Accessible.role: Accessible.ProgressBar
                    Accessible.name: view.message
                    Accessible.description: percentage.text
                }

                ColumnLayout {
                    anchors.centerIn: parent
                    // There is more room above the large digits than below the texts.
                    anchors.verticalCenterOffset: -2
                    // What the ring leaves to the texts.
                    width: 150
                    spacing: 2

                    PlainText {
                        id: percentage
                        Layout.alignment: Qt.AlignHCenter
                        Layout.preferredWidth: 130
                        horizontalAlignment: Text.AlignHCenter
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: 30
                        text: qsTr("%1%", "a percentage").arg(ring.percentage)
                        font.pixelSize: 44
                        font.bold: true
                        color: Colors.textPrimary
                        Accessible.ignored: true
                    }

                    PlainText {
                        Layout.fillWidth: true
                        horizontalAlignment: Text.AlignHCenter
                        wrapMode: Text.Wrap
                        text: view.foundFiles > 0
                              ? qsTr("%Ln files found", "", view.foundFiles)
                              : qsTr("of this step", "follows a percentage")
                        font.pixelSize: 14
                        font.weight: Font.Medium
                        color: Colors.accentText
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }

                    PlainText {
                        Layout.fillWidth: true
                        horizontalAlignment: Text.AlignHCenter
                        wrapMode: Text.Wrap
                        text: qsTr("Your files stay as they are")
                        font.pixelSize: 12
                        color: Colors.textSecondary
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }
                }
            }

            PlainText {
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: 230
                Layout.fillHeight: true
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.Wrap
                // The height of the card is fixed; a long message is scaled down.
                fontSizeMode: Text.Fit
                minimumPixelSize: 12
                text: view.message
                font.pixelSize: 22
                color: Colors.textPrimary
            }

            ScaleButtonStyle {
                Layout.alignment: Qt.AlignHCenter
                symbol: "arrow.uturn.backward.circle.fill"
                text: qsTr("Cancel & Go Back")
                font.pixelSize: 15
                font.weight: Font.DemiBold
                tint: Colors.accent
                focus: true
                onClicked: view.stop()
            }
        }
    }
}
