pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Sonavo

// What the last clean-up has done, and the files that it could not move.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel
    // Whether there is a list of duplicates to go back to.
    required property bool hasList
    // The user wants to see that list.
    signal back

    readonly property bool hasFailures: viewModel.cleanUpFailureCount > 0
    readonly property bool canAct: !viewModel.showCleanUpProgress

    Rectangle {
        anchors.fill: parent
        color: Colors.background
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 24
        // A toast does not cover the buttons.
        anchors.bottomMargin: 52
        spacing: 16

        Item {
            visible: !view.hasFailures
            Layout.fillHeight: true
        }

        GridLayout {
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: true
            Layout.maximumWidth: view.hasFailures ? 900 : 640
            columns: view.hasFailures ? 2 : 1
            columnSpacing: 16
            rowSpacing: 16

            Rectangle {
                Layout.alignment: Qt.AlignHCenter
                implicitWidth: view.hasFailures ? 52 : 110
                implicitHeight: implicitWidth
                radius: implicitWidth / 2
                color: Qt.alpha(view.hasFailures ? Colors.error : Colors.accent, 0.15)

                Rectangle {
                    anchors.centerIn: parent
                    visible: !view.hasFailures
                    width: 90
                    height: 90
                    radius: 45
                    color: Colors.accent
                }

                SymbolIcon {
                    anchors.centerIn: parent
                    symbol: view.hasFailures ? "exclamationmark.triangle.fill" : "checkmark"
                    size: view.hasFailures ? 26 : 40
                    color: view.hasFailures ? Colors.error : Colors.background
                }
            }

            ColumnLayout {
                spacing: 6

                Line {
                    // Where a screen reader begins, and the keyboard; not a button, which the next key would press.
                    focus: !view.hasFailures
                    KeyNavigation.tab: undoButton
                    text: view.viewModel.cleanUpHeadline
                    font.pixelSize: view.hasFailures ? 20 : 24
                    font.weight: Font.DemiBold
                    color: Colors.textPrimary
                    Accessible.role: Accessible.Heading
                    Accessible.focusable: true
                }
                Line {
                    text: view.viewModel.cleanUpRemaining
                    font.pixelSize: view.hasFailures ? 14 : 16
                }
                Line {
                    visible: text !== ""
                    text: view.viewModel.cleanUpLosses
                    font.pixelSize: 13
                }
            }
        }

        FailureList {
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.maximumWidth: 900
            visible: view.hasFailures
            focus: visible
            viewModel: view.viewModel
        }

        PreviewBar {
            Layout.alignment: Qt.AlignHCenter
            Layout.maximumWidth: 560
            viewModel: view.viewModel
        }

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 12

            SummaryButton {
                visible: view.hasList
                symbol: "music.note.list"
                text: qsTr("Back to List")
                onClicked: view.back()
            }
            SummaryButton {
                id: undoButton
                visible: view.viewModel.undoText !== ""
                symbol: "arrow.uturn.backward"
                text: view.viewModel.undoText
                onClicked: view.viewModel.undo()
            }
            SummaryButton {
                visible: view.hasFailures
                isFilled: true
                symbol: "arrow.clockwise.circle.fill"
                text: qsTr("Try Again")
                onClicked: view.viewModel.retryCleanUp()
            }
        }

        Item {
            visible: !view.hasFailures
            Layout.fillHeight: true
        }
    }

    component Line: PlainText {
        Layout.fillWidth: true
        horizontalAlignment: view.hasFailures ? Text.AlignLeft : Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Colors.textSecondary
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    component SummaryButton: ScaleButtonStyle {
        enabled: view.canAct
        symbolSize: 15
        font.pixelSize: 14
    }
}
