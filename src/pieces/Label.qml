import QtQuick
import Vellix.Pieces

// Text in the program's face. `size` is in logical pixels and may be a half. A text may be of any
// length: what no line could hold, and nobody would read to its end, is not laid out.
Words {
    id: label

    property string text: ""
    property int wrapMode: Text.NoWrap
    property real size: Theme.row
    property int weight: Font.Normal
    // Shows the whole text as help while it is cut short.
    property bool tellsWhole: false
    property string help: ""

    property int most: Math.min(Theme.mostShown, Theme.mostOnALine * (wrapMode === Text.NoWrap ? 1 : maximumLineCount))

    // An emoji is two characters, and is not cut in half.
    laidOut: text.length > most ? text.slice(0, most).replace(/[\ud800-\udbff]$/, "") + "…" : text
    // For each line, the end of the word that it begins with would be looked for.
    broken: wrapMode === Text.Wrap && laidOut.length > Theme.mostOnALine && /[^ \n\t]{1000}/.test(laidOut)
            ? Text.WrapAnywhere : wrapMode
    color: Theme.text
    font.family: Theme.family
    font.pointSize: size * Theme.pointsPerPixel
    font.weight: weight
    elide: wrapMode === Text.NoWrap ? Text.ElideRight : Text.ElideNone
    lineHeight: wrapMode === Text.NoWrap ? 1 : Theme.lineHeight
    verticalAlignment: Text.AlignVCenter

    Accessible.role: Accessible.StaticText
    Accessible.name: laidOut
    Accessible.ignored: text === ""

    // Most have none.
    HelpOver.text: help || (tellsWhole && truncated ? text : "")
}
