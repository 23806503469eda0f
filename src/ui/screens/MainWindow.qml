pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Sonavo

// The main window.
ApplicationWindow {
    id: window

    required property DuplicateViewModel viewModel
    required property ThemeManager themeManager

    // Qt keeps the keys of closed menus active behind a sheet.
    readonly property bool hasSheet: content.hasSheet || shortcuts.visible || about.visible
    readonly property bool canChange: !viewModel.isCleaningUp && !hasSheet
    readonly property bool hasResult: viewModel.songCount > 0 && !viewModel.isScanning

    // The user wants the window in front.
    signal showRequested

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
        id: windowHeader

        themeManager: window.themeManager
        menus: [
            ThemedMenu {
                title: qsTr("&File", "a menu")
                Action {
                    text: Shortcuts.textOf(Shortcuts.AddSong)
                    shortcut: Shortcuts.keyOf(Shortcuts.AddSong)
                    enabled: window.canChange
                    onTriggered: window.viewModel.importWithOpenPanel()
                }
                Action {
                    text: Shortcuts.textOf(Shortcuts.SaveReport)
                    shortcut: Shortcuts.keyOf(Shortcuts.SaveReport)
                    enabled: window.canChange && window.hasResult
                    onTriggered: window.viewModel.saveReport()
                }
                Action {
                    text: Shortcuts.textOf(Shortcuts.ClearList)
                    shortcut: Shortcuts.keyOf(Shortcuts.ClearList)
                    enabled: window.canChange
                    onTriggered: window.viewModel.clearAll()
                }
                ThemedMenuSeparator {}
                Action {
                    text: Shortcuts.textOf(Shortcuts.FindMore)
                    shortcut: Shortcuts.keyOf(Shortcuts.FindMore)
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
                    text: Shortcuts.textOf(Shortcuts.Quit)
                    shortcut: Shortcuts.keyOf(Shortcuts.Quit)
                    onTriggered: Qt.quit()
                }
            },
            ThemedMenu {
                title: qsTr("&Edit", "a menu")
                Action {
                    text: window.viewModel.undoText !== "" ? window.viewModel.undoText : Shortcuts.textOf(Shortcuts.Undo)
                    shortcut: Shortcuts.keyOf(Shortcuts.Undo)
                    enabled: window.viewModel.undoText !== "" && window.canChange && !window.viewModel.isScanning
                    onTriggered: window.viewModel.undo()
                }
                Action {
                    text: Shortcuts.textOf(Shortcuts.ScanCopiedFiles)
                    shortcut: Shortcuts.keyOf(Shortcuts.ScanCopiedFiles)
                    enabled: window.canChange
                    onTriggered: window.viewModel.importFromClipboard()
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
                    text: Shortcuts.textOf(Shortcuts.Minimize)
                    shortcut: Shortcuts.keyOf(Shortcuts.Minimize)
                    onTriggered: window.showMinimized()
                }
                Action {
                    text: Shortcuts.textOf(Shortcuts.ShowWindow)
                    shortcut: Shortcuts.keyOf(Shortcuts.ShowWindow)
                    onTriggered: window.showRequested()
                }
            },
            ThemedMenu {
                title: qsTr("&Help", "a menu")
                Action {
                    text: Shortcuts.textOf(Shortcuts.ShowShortcuts)
                    shortcut: Shortcuts.keyOf(Shortcuts.ShowShortcuts)
                    onTriggered: shortcuts.open()
                }
                Action {
                    text: qsTr("About Sonavo")
                    onTriggered: about.open()
                }
            }
        ]
    }

    ContentView {
        id: content
        anchors.fill: parent
        focus: true
        viewModel: window.viewModel
    }

    // Its other keys: a menu has one.
    Shortcut {
        sequences: Shortcuts.furtherSequencesOf(Shortcuts.ShowShortcuts)
        onActivated: shortcuts.open()
    }

    Shortcut {
        sequence: Shortcuts.keyOf(Shortcuts.OpenMenu)
        onActivated: windowHeader.openMenu()
    }

    ShortcutsSheet {
        id: shortcuts
    }

    AboutSheet {
        id: about
    }
}
