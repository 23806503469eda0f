import QtQuick

// Takes drops of files and folders; web links and texts pass by.
DropArea {
    id: area

    // Imports what was dropped, given its URLs.
    required property var handleDrop

    function hasFiles(drag) {
        return drag.hasUrls && drag.urls.some(url => url.toString().startsWith("file:"));
    }

    onEntered: drag => drag.accepted = hasFiles(drag)
    onDropped: drop => {
        if (!hasFiles(drop))
            return;
        // The files are only looked at, so nobody is to take them away.
        drop.accept(Qt.CopyAction);
        area.handleDrop(drop.urls);
    }
}
