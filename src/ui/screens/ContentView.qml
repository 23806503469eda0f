import QtQuick
import Sonavo

// The content of the window: selects the screen, accepts drops anywhere, and contains the overlays of all screens:
// alert, sheet and toast.
FocusScope {
    id: view

    required property DuplicateViewModel viewModel

    // Whether an import has been started; the welcome screen shows until then.
    property bool hasAddedSongs: false
    property bool showLimitSheet: false

    readonly property bool isScanning: viewModel.isScanning
    readonly property int songCount: viewModel.songCount
    // Whether the list shows every group.
    readonly property bool showsAll: results.showsAll
    // Whether a sheet lies over the content.
    readonly property bool hasSheet: alert.visible || replaceSheet.visible || limitSheet.visible

    function addSongs() {
        if (viewModel.importWithOpenPanel())
            hasAddedSongs = true;
    }

    function stop() {
        viewModel.clearAll();
        if (viewModel.songCount === 0)
            hasAddedSongs = false;
    }

    function handleDrop(urls) {
        if (viewModel.importDrop(urls))
            hasAddedSongs = true;
    }

    function limitSheetDismissed() {
        viewModel.showLimitWarning = false;
        if (viewModel.songCount > 0 || viewModel.isScanning)
            return;
        hasAddedSongs = false;
        viewModel.pendingImportURLs = [];
    }

    // A scan is shown whatever started it.
    onIsScanningChanged: {
        if (isScanning)
            hasAddedSongs = true;
        else if (songCount === 0)
            hasAddedSongs = false;
    }
    onSongCountChanged: {
        // An undo can bring songs back.
        if (!isScanning)
            hasAddedSongs = songCount > 0;
    }

    // The part of the window that had the focus has disappeared, and no other part has taken it.
    Timer {
        interval: 0
        running: view.Window.activeFocusItem === view
        onTriggered: {
            if (results.visible)
                results.focusContent();
            else
                (progress.visible ? progress : welcome).forceActiveFocus();
        }
    }

    Connections {
        target: view.viewModel
        function onShowLimitWarningChanged() {
            view.showLimitSheet = view.viewModel.showLimitWarning;
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Colors.background
    }

    FileDropArea {
        id: dropArea
        anchors.fill: parent
        enabled: !view.viewModel.isCleaningUp
        onFilesDropped: urls => view.handleDrop(urls)
    }

    WelcomeView {
        id: welcome
        anchors.fill: parent
        visible: !view.hasAddedSongs
        enabled: !view.viewModel.showCleanUpProgress
        focus: visible
        onFilesDropped: urls => view.handleDrop(urls)
        onAddSongs: view.addSongs()
    }

    CircularProgressView {
        id: progress
        anchors.fill: parent
        visible: view.hasAddedSongs && view.isScanning
        focus: visible
        viewModel: view.viewModel
        onStop: view.stop()
    }

    ResultsView {
        id: results
        anchors.fill: parent
        visible: view.hasAddedSongs && !view.isScanning
        focus: visible
        viewModel: view.viewModel
    }

    // Files over the window can be dropped anywhere.
    Rectangle {
        anchors.fill: parent
        visible: dropArea.containsDrag
        color: Qt.alpha(Colors.accent, 0.12)
        border.width: 3
        border.color: Colors.accent
    }

    CleanUpProgressView {
        anchors.fill: parent
        viewModel: view.viewModel
    }

    ToastOverlay {
        anchors.fill: parent
        keepClear: results.visible ? results.currentRect : Qt.rect(0, 0, 0, 0)
        viewModel: view.viewModel
    }

    NotificationAlert {
        id: alert
        viewModel: view.viewModel
    }

    ReplaceResultSheet {
        id: replaceSheet
        viewModel: view.viewModel
    }

    SongLimitWarningView {
        id: limitSheet
        viewModel: view.viewModel
        isPresented: view.showLimitSheet
        pendingCount: view.viewModel.pendingImportURLs.length
        currentCount: view.songCount
        onConfirm: view.hasAddedSongs = true
        onDismissed: {
            view.showLimitSheet = false;
            view.limitSheetDismissed();
        }
    }
}
