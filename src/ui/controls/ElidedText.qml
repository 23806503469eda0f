import QtQuick

// A text in one line. What does not fit is elided; whoever shows tooltips shows the full text then.
Text {
    // All that the text stands for, where the text itself does not show it; otherwise empty.
    property string fullText: truncated ? text : ""

    textFormat: Text.PlainText
    elide: Text.ElideRight
    maximumLineCount: 1
    verticalAlignment: Text.AlignVCenter
}
