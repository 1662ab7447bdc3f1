import QtQuick

// Lays out a text. Labels and digits alone are made of it: they bound what is laid out.
Text {
    id: words

    property alias laidOut: words.text
    property alias broken: words.wrapMode

    textFormat: Text.PlainText
}
