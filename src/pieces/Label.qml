import QtQuick
import Vellix.Pieces

// Text in the program's face. `size` is in logical pixels and may be a half.
Text {
    id: label

    property real size: Theme.row
    property int weight: Font.Normal
    // Shows the whole text as help while it is cut short.
    property bool tellsWhole: false
    property string help: ""

    color: Theme.text
    font.family: Theme.family
    font.pointSize: size * Theme.pointsPerPixel
    font.weight: weight
    textFormat: Text.PlainText
    elide: wrapMode === Text.NoWrap ? Text.ElideRight : Text.ElideNone
    lineHeight: wrapMode === Text.NoWrap ? 1 : Theme.lineHeight
    verticalAlignment: Text.AlignVCenter

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""

    ToolTipArea {
        anchors.fill: parent
        text: label.help || (label.tellsWhole && label.truncated ? label.text : "")
    }
}
