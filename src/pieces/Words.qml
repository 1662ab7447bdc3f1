import QtQuick

// Lays out a text. Digits and what measures a label are made of it: they bound what is laid out.
Text {
    id: words

    property alias laidOut: words.text
    property alias broken: words.wrapMode

    textFormat: Text.PlainText
}
