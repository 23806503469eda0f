import QtQuick
import Sonavo

// One line of text, elided where it does not fit.
PlainText {
    // What a tooltip shows: the whole text where it is elided, otherwise nothing.
    property string fullText: truncated ? text : ""

    elide: Text.ElideRight
    maximumLineCount: 1
    verticalAlignment: Text.AlignVCenter
}
