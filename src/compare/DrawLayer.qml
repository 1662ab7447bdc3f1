import QtQuick
import Vellix.Pieces

// The clear surface over a page that turns a click or a drag into the place of a note.
MouseArea {
    id: layer

    property var start: null
    property var now: null
    property bool touched: false

    // Which page it lies over: a drag does not go on to another.
    required property real page

    signal drawn(point from, point to)

    function drop() {
        start = null;
        now = null;
    }

    onPageChanged: drop()
    onWidthChanged: drop()

    clip: true
    acceptedButtons: Qt.LeftButton
    // Two fingers pinch.
    preventStealing: !touched
    cursorShape: Qt.CrossCursor

    onPressed: mouse => {
        touched = mouse.source !== Qt.MouseEventNotSynthesized;
        start = Qt.point(mouse.x, mouse.y);
        now = start;
    }
    onPositionChanged: mouse => now = Qt.point(mouse.x, mouse.y)
    onReleased: mouse => {
        const from = start;
        drop();
        if (from)
            drawn(from, Qt.point(mouse.x, mouse.y));
    }
    onCanceled: drop()

    MarkFrame {
        visible: layer.start !== null && layer.now !== null
        x: visible ? Math.min(layer.start.x, layer.now.x) : 0
        y: visible ? Math.min(layer.start.y, layer.now.y) : 0
        width: visible ? Math.abs(layer.start.x - layer.now.x) : 0
        height: visible ? Math.abs(layer.start.y - layer.now.y) : 0
        color: Theme.onPaper["accent"]
        line: 1.6
        dash: 5
        fill: 0.08
    }
}
