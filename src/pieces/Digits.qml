import QtQuick
import Vellix.Pieces

// One line of text whose digits are all equally wide, for numbers that change in place. Without a
// text there is nothing in it: many a badge never has one.
Item {
    id: digits

    required property string text
    property real size: Theme.row
    property int weight: Font.Normal
    property color color: Theme.text

    // Runs between digits stay whole, so that words keep their kerning. Each run is an item, so what is
    // too long to be a number is a single one, and bounded as a label's is.
    readonly property var runs: text.length > Theme.mostOnALine ? [text.slice(0, Theme.mostOnALine) + "…"]
                              : text.length > 64 ? [text] : text.match(/\d|\D+/g) || []

    readonly property Row row: cells.item as Row

    implicitWidth: row?.implicitWidth ?? 0
    implicitHeight: row?.implicitHeight ?? 0

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Loader {
        id: cells

        active: digits.text !== ""
        sourceComponent: Row {
            // The face's nought sets the width of all.
            Words {
                id: zero

                visible: false
                font.family: Theme.family
                font.pointSize: digits.size * Theme.pointsPerPixel
                font.weight: digits.weight
                laidOut: "0"
            }

            Repeater {
                // By number: another text keeps the cells, of which few change.
                model: digits.runs.length

                Words {
                    required property int index
                    readonly property string run: digits.runs[index] ?? ""
                    readonly property bool digit: run.length === 1 && run >= "0" && run <= "9"

                    // Else its own, without a look at what changes while it is laid out.
                    width: digit ? zero.implicitWidth : undefined
                    horizontalAlignment: Text.AlignHCenter
                    font: zero.font
                    color: digits.color
                    laidOut: run
                    Accessible.ignored: true
                }
            }
        }
    }
}
