import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The rectangle of a finding on a page. `place` is where it is drawn.
Pressable {
    id: box

    required property boxMarkView mark
    required property rect place
    property CompareModel compare: null

    x: place.x
    y: place.y
    width: place.width
    height: place.height
    // A small one within a large one can still be pressed.
    z: -mark.box.width * mark.box.height
    radius: 3
    pressedScale: 1
    label: mark.name
    help: mark.help

    Accessible.checkable: true
    Accessible.checked: mark.selected
    Accessible.onToggleAction: box.click()

    PointedFinding {
        id: pointer

        compare: box.compare
        finding: box.mark.finding
        under: box.hovered
    }

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    MarkFrame {
        anchors.fill: parent
        color: Theme.onPaper[box.mark.colour]
        line: box.mark.selected || box.hovered || pointer.pointed ? 2.4 : 1.6
        dash: ({ solid: 0, dashed: 4, dotted: 1.6 })[box.mark.line]
        fill: box.mark.selected ? 0.1 : 0
    }
}
