pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// One line of text whose digits are all equally wide, for numbers that change in place.
Item {
    id: digits

    required property string text
    property real size: Theme.row
    property int weight: Font.Normal
    property color color: Theme.text

    // Runs between digits stay whole, so that words keep their kerning. Each run is an item, so what is
    // too long to be a number is a single one.
    readonly property var runs: text.length > 64 ? [text] : text.match(/\d|\D+/g) || []

    implicitWidth: text === "" ? 0 : cells.implicitWidth
    implicitHeight: zero.implicitHeight
    baselineOffset: zero.baselineOffset

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    // The face's nought sets the width of all.
    Label {
        id: zero

        visible: false
        size: digits.size
        weight: digits.weight
        text: "0"
    }

    Row {
        id: cells

        Repeater {
            // By number: another text keeps the cells, of which few change.
            model: digits.runs.length

            Label {
                required property int index
                readonly property string run: digits.runs[index] ?? ""
                readonly property bool digit: run.length === 1 && run >= "0" && run <= "9"

                // Else its own, without a look at what changes while it is laid out.
                width: digit ? zero.implicitWidth : undefined
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideNone
                size: digits.size
                weight: digits.weight
                color: digits.color
                text: run
                Accessible.ignored: true
            }
        }
    }
}
