import QtQuick

// Every text of the program is shown by this type. Texts contain names of files and folders; as rich text, a name
// could load any file.
Text {
    textFormat: Text.PlainText
}
