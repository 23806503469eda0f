pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// The main window.
ApplicationWindow {
    id: window

    required property DuplicateViewModel viewModel
    required property ThemeManager themeManager

    readonly property bool canChange: !viewModel.isCleaningUp
    readonly property bool hasResult: viewModel.songCount > 0 && !viewModel.isScanning

    title: qsTr("Sonavo")
    width: 1100
    height: 740
    minimumWidth: 900
    // The content alone has 900 by 600 points.
    minimumHeight: 600 + header.implicitHeight
    visible: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    header: WindowHeader {
        themeManager: window.themeManager
        menus: [
            ThemedMenu {
                title: qsTr("&File", "a menu")
                Action {
                    text: qsTr("Add Song")
                    shortcut: "Ctrl+O"
                    enabled: window.canChange
                    onTriggered: window.viewModel.importWithOpenPanel()
                }
                Action {
                    text: qsTr("Clear List")
                    shortcut: "Ctrl+L"
                    enabled: window.canChange
                    onTriggered: window.viewModel.clearAll()
                }
                ThemedMenuSeparator {}
                Action {
                    text: qsTr("Find More Duplicates")
                    shortcut: "Ctrl+Shift+F"
                    enabled: window.canChange && window.hasResult && !window.viewModel.isFurtherResult
                    onTriggered: window.viewModel.findMore()
                }
                Action {
                    text: qsTr("Return to First Result")
                    enabled: window.canChange && window.hasResult && window.viewModel.isFurtherResult
                    onTriggered: window.viewModel.returnToFirstResult()
                }
                ThemedMenuSeparator {}
                Action {
                    text: qsTr("Quit")
                    shortcut: "Ctrl+Q"
                    onTriggered: Qt.quit()
                }
            },
            ThemedMenu {
                title: qsTr("&Edit", "a menu")
                Action {
                    text: window.viewModel.undoText !== "" ? window.viewModel.undoText : qsTr("Undo")
                    shortcut: "Ctrl+Z"
                    enabled: window.viewModel.undoText !== "" && window.canChange && !window.viewModel.isScanning
                    onTriggered: window.viewModel.undo()
                }
                ThemedMenuSeparator {}
                Action {
                    text: qsTr("Keep Lossless Copies")
                    enabled: window.canChange && window.hasResult && window.viewModel.duplicateCount > 0
                             && content.showsAll
                    onTriggered: window.viewModel.keepLosslessCopies()
                }
            },
            ThemedMenu {
                title: qsTr("&Window", "a menu")
                Action {
                    text: qsTr("Minimize")
                    shortcut: "Ctrl+M"
                    onTriggered: window.showMinimized()
                }
                Action {
                    text: qsTr("Show Main Window")
                    shortcut: "Ctrl+0"
                    onTriggered: window.showMainWindow()
                }
            },
            ThemedMenu {
                title: qsTr("&Help", "a menu")
                Action {
                    text: qsTr("About Sonavo")
                    onTriggered: about.open()
                }
            }
        ]
    }

    function showMainWindow() {
        if (visibility === Window.Minimized || visibility === Window.Hidden)
            showNormal();
        raise();
        requestActivate();
    }

    ContentView {
        id: content
        anchors.fill: parent
        focus: true
        viewModel: window.viewModel
    }

    AboutSheet {
        id: about
    }
}
