import QtQuick

// The only kind of text of the program. Texts hold names of files and folders; as rich text, a name could load
// any file.
Text {
    textFormat: Text.PlainText
}
