import QtQuick
import QtQuick.Layouts
import Sonavo

// The actions on the session, and the numbers of duplicates and songs.
Rectangle {
    id: toolbar

    required property DuplicateViewModel viewModel
    // Whether the list shows every duplicate, and what it hides otherwise.
    required property bool showsAll
    required property string filterNote
    readonly property bool canCleanUp: viewModel.duplicateGroupCount > 0 && !viewModel.isScanning && showsAll

    implicitHeight: row.implicitHeight + 12
    color: Colors.toolbar
    enabled: !viewModel.showCleanUpProgress
    Accessible.role: Accessible.ToolBar
    Accessible.name: qsTr("Actions")

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 8

        ToolbarButton {
            symbol: "plus.circle.fill"
            text: qsTr("Add Song")
            onClicked: toolbar.viewModel.importWithOpenPanel()
        }

        ToolbarButton {
            enabled: toolbar.canCleanUp
            symbol: "trash.circle.fill"
            tint: Colors.error
            text: qsTr("Cleanup All")
            description: toolbar.viewModel.cleanupAllDescription
            onClicked: toolbar.viewModel.cleanupAll()
        }

        ToolbarButton {
            enabled: toolbar.canCleanUp
            symbol: "folder.badge.plus"
            text: qsTr("Move Duplicates")
            description: toolbar.viewModel.moveDuplicatesDescription
            onClicked: toolbar.viewModel.moveDuplicatesToFolder()
        }

        // Why the two buttons before it are disabled.
        PlainText {
            Layout.fillWidth: true
            // What the others leave.
            Layout.preferredWidth: 0
            text: toolbar.filterNote
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: 12
            color: Colors.textPrimary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: text === ""
        }

        SymbolLabel {
            symbol: "doc.on.doc.fill"
            symbolSize: 14
            text: qsTr("%n duplicates", "", toolbar.viewModel.duplicateCount)
            font.pixelSize: 13
            color: Colors.accentText
            rightPadding: 6
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        SymbolLabel {
            symbol: "music.note.list"
            symbolSize: 14
            text: qsTr("%n total", "songs", toolbar.viewModel.songCount)
            font.pixelSize: 13
            color: Colors.textSecondary
            rightPadding: 6
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ToolbarButton {
            symbol: "arrow.clockwise.circle.fill"
            tint: Colors.textSecondary
            text: qsTr("Clear List")
            onClicked: toolbar.viewModel.clearAll()
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Colors.border
    }

    component ToolbarButton: ModernButtonStyle {
        // Where fonts are wide and numbers are large, it gives up its margins and then shrinks its text.
        Layout.fillWidth: true
        Layout.minimumWidth: implicitWidth * 0.85
        Layout.preferredWidth: Math.max(115, implicitWidth + 12)
        Layout.maximumWidth: Layout.preferredWidth
        symbolSize: 15
        font.pixelSize: 13
    }
}
