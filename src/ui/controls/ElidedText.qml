import QtQuick
import Sonavo

// One line of text at the left of its place, whatever its script, elided where it does not fit.
PlainText {
    // What a tooltip shows: the whole text where it is elided, otherwise nothing.
    property string fullText: truncated ? text : ""

    horizontalAlignment: Text.AlignLeft
    elide: Text.ElideRight
    maximumLineCount: 1
    verticalAlignment: Text.AlignVCenter
}
