import QtQuick
import Vellix.Pieces

// Text in the program's face. `size` is in logical pixels and may be a half. A text may be of any
// length: what no line could hold, and nobody would read to its end, is not laid out.
Text {
    property alias text: form.text
    property alias laidOut: form.laidOut
    property alias most: form.most
    property alias wrapMode: form.wrapMode
    property alias broken: form.broken
    property alias elide: form.elide
    property alias lineHeight: form.lineHeight
    property alias size: form.size
    property alias weight: form.weight
    property alias tellsWhole: form.tellsWhole
    property alias help: form.help

    textFormat: Text.PlainText
    color: Theme.text
    verticalAlignment: Text.AlignVCenter

    Accessible.role: Accessible.StaticText
    Accessible.name: form.laidOut
    Accessible.ignored: form.text === ""

    LabelText {
        id: form
    }
}
