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
    // The files are only looked at. A program that is told that they are moved may delete them, and many go by
    // what they are told before the drop.
    onPositionChanged: drag => drag.accept(Qt.CopyAction)
    onDropped: drop => {
        if (!hasFiles(drop))
            return;
        drop.accept(Qt.CopyAction);
        area.handleDrop(drop.urls);
    }
}
