pragma ComponentBehavior: Bound

import Qt.labs.qmlmodels
import QtQuick
import Sonavo

// The groups and their songs under a fixed header. Items exist for visible rows only.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel
    readonly property bool isEmpty: rows.isEmpty
    // Whether the filter hides none of the duplicates, and what it hides otherwise.
    readonly property bool showsAll: rows.showsAll
    readonly property string filterNote: rows.filterNote

    // Where the row is that has the keyboard; empty without one.
    readonly property rect currentRect: list.activeFocus && list.currentItem
                                        ? Qt.rect(0, list.y + list.currentItem.y - list.contentY, width,
                                                  list.currentItem.height)
                                        : Qt.rect(0, 0, 0, 0)

    // Whoever comes back comes to the list.
    onActiveFocusChanged: {
        if (!activeFocus)
            list.focus = true;
    }

    function play(row) {
        const song = rows.songAt(row);
        if (song !== undefined)
            view.viewModel.togglePlayback(song);
    }

    // Whether another song of the row's group is playing.
    function canCompare(row) {
        const playing = view.viewModel.currentlyPlayingSong;
        const playingRow = playing === undefined ? -1 : rows.rowOf(playing);
        return playingRow >= 0 && playingRow !== row && rows.headerRow(playingRow) === rows.headerRow(row);
    }

    // From the same second as that one.
    function compare(row) {
        if (canCompare(row) && row !== rows.headerRow(row))
            view.viewModel.comparePlayback(rows.songAt(row));
        else
            view.play(row);
    }

    function remove(row) {
        const song = rows.songAt(row);
        if (song !== undefined)
            view.viewModel.deleteSong(song);
    }

    // The song that is to become the first of its group. The current row follows it.
    property var keptSong

    function keep(song) {
        const row = rows.rowOf(song);
        if (view.viewModel.isCleaningUp || row < 0 || row === rows.headerRow(row) + 1)
            return;
        keptSong = song;
        view.viewModel.keepSong(song);
    }

    function followKeptSong() {
        const row = keptSong === undefined ? -1 : rows.rowOf(keptSong);
        if (row < 0 || row !== rows.headerRow(row) + 1)
            return;
        list.currentIndex = row;
        keptSong = undefined;
    }

    Connections {
        target: rows
        function onDataChanged() {
            view.followKeptSong();
        }
        function onModelReset() {
            view.followKeptSong();
        }
        function onRowsInserted() {
            view.followKeptSong();
        }
    }

    // Does what a key means for a row. Returns false where it means nothing.
    function perform(action, row) {
        const header = rows.headerRow(row);
        // The filter can leave no row. Qt 6.4 crashes where a song is expected and none is given.
        if (header < 0)
            return false;
        switch (action) {
        case Shortcuts.HideSongs:
            list.currentIndex = header;
            rows.setExpanded(header, false);
            return true;
        case Shortcuts.ShowSongs:
            rows.setExpanded(row, true);
            return true;
        case Shortcuts.FirstRow:
            list.currentIndex = 0;
            return true;
        case Shortcuts.LastRow:
            list.currentIndex = list.count - 1;
            return true;
        case Shortcuts.Listen:
            play(row);
            return true;
        case Shortcuts.Compare:
            compare(row);
            return true;
        case Shortcuts.MoveToTrash:
            remove(row);
            return true;
        case Shortcuts.OpenRowMenu:
            const badge = LayoutMirroring.enabled ? width - TableColumns.badgeX - menu.width : TableColumns.badgeX;
            (row === header ? groupMenu : menu).openFor(row, list.currentItem, badge, 20);
            return true;
        case Shortcuts.ToggleGroup:
            if (row === header)
                rows.setExpanded(row, !rows.isExpanded(row));
            return row === header;
        case Shortcuts.KeepThisOne:
            if (row !== header)
                keep(rows.songAt(row));
            return row !== header;
        default:
            return false;
        }
    }

    // The next row moves under the pointer, where the second click of a double-click must not delete it too.
    function removeByPointer(row) {
        if (recentRemoval.running)
            return;
        recentRemoval.restart();
        remove(row);
    }

    // Rows move when a clean-up or an undo ends, too.
    Connections {
        target: view.viewModel
        function onIsCleaningUpChanged() {
            recentRemoval.restart();
        }
    }

    Timer {
        id: recentRemoval
        interval: Application.styleHints.mouseDoubleClickInterval
    }

    Shortcut {
        sequence: Shortcuts.keyOf(Shortcuts.Filter)
        enabled: view.visible && !view.viewModel.showCleanUpProgress
        onActivated: filterBar.edit()
    }

    // Another scan shows everything that it has found.
    Connections {
        target: view.viewModel
        function onIsScanningChanged() {
            filterBar.clear();
        }
    }

    TableHeaderView {
        id: header
        anchors.top: filterBar.bottom
        width: parent.width
    }

    Binding {
        target: TableColumns
        property: "rowWidth"
        value: list.rowWidth
    }

    ListView {
        id: list

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        // Screen readers would take rows outside the view for visible.
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        highlightMoveVelocity: -1
        currentIndex: 0
        leftMargin: TableColumns.listMargin
        rightMargin: TableColumns.listMargin

        readonly property real rowWidth: width - leftMargin - rightMargin
        readonly property bool showsCurrent: activeFocus

        // Hides a pooled item from screen readers. Where it was it could be under the pointer when it is shown
        // again, before it gets its new place, and would stay hovered.
        function hide(item) {
            item.visible = false;
            item.y = originY - item.height;
        }

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Duplicate songs")

        model: DuplicateListModel {
            id: rows
            viewModel: view.viewModel
        }

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: "header"

                DuplicateGroupView {
                    id: group

                    required property int index

                    width: list.rowWidth
                    isCurrent: list.showsCurrent && list.currentIndex === index
                    ListView.onPooled: list.hide(group)
                    ListView.onReused: {
                        visible = true;
                        // Qt 6.8 keeps reused items out of the accessibility tree.
                        Accessible.ignored = false;
                    }
                    onClicked: {
                        list.currentIndex = index;
                        rows.setExpanded(index, !isExpanded);
                    }
                    onOpenMenu: (item, x, y) => {
                        list.currentIndex = index;
                        list.forceActiveFocus(Qt.MouseFocusReason);
                        groupMenu.openFor(index, item, x, y);
                    }
                }
            }

            DelegateChoice {
                roleValue: "song"

                SongRow {
                    id: songRow

                    required property int index

                    width: list.rowWidth
                    showsDetails: !view.viewModel.showCleanUpProgress
                    isCurrent: list.showsCurrent && list.currentIndex === index
                    onSelect: {
                        list.currentIndex = index;
                        list.forceActiveFocus(Qt.MouseFocusReason);
                    }
                    onPlay: view.play(index)
                    onCompare: view.compare(index)
                    onSeek: x => view.viewModel.seekPlayback(x, width)
                    onRemove: view.removeByPointer(index)
                    onOpenMenu: (x, y) => menu.openFor(index, songRow, x, y)
                    ListView.onPooled: list.hide(songRow)
                    ListView.onReused: {
                        visible = true;
                        Accessible.ignored = false;
                        clickPosition = Qt.point(-1, -1);
                    }
                }
            }
        }

        Keys.onPressed: event => {
            const action = Shortcuts.listAction(event.key, event.modifiers);
            // What a held key would do over and over.
            const isOnce = action !== Shortcuts.HideSongs && action !== Shortcuts.ShowSongs
                           && action !== Shortcuts.FirstRow && action !== Shortcuts.LastRow;
            event.accepted = !(isOnce && event.isAutoRepeat) && view.perform(action, list.currentIndex);
        }
    }

    PlainText {
        anchors.centerIn: list
        visible: list.count === 0
        text: qsTr("No group matches the filter")
        font.pixelSize: 16
        color: Colors.textSecondary
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    // After the list, for the order of tab stops.
    FilterBar {
        id: filterBar
        width: parent.width
        model: rows
        onLeave: list.forceActiveFocus(Qt.OtherFocusReason)
    }

    ThinScrollBar {
        flickable: list
        anchors.top: list.top
        anchors.bottom: list.bottom
        anchors.right: parent.right
    }

    SongMenu {
        id: menu

        viewModel: view.viewModel
        showsAll: view.showsAll
        onKeep: song => view.keep(song)
        onRemove: song => view.viewModel.deleteSong(song)

        function openFor(row, item, x, y) {
            const clicked = rows.songAt(row);
            if (clicked === undefined)
                return;
            song = clicked;
            isOriginal = row === rows.headerRow(row) + 1;
            canCompare = view.canCompare(row);
            popup(item, x, y);
        }
    }

    GroupMenu {
        id: groupMenu

        viewModel: view.viewModel

        function openFor(row, item, x, y) {
            original = rows.originalAt(row);
            popup(item, x, y);
        }
    }
}
