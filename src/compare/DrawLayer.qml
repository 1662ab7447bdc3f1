import QtQuick
import Vellix.Pieces

// The clear surface over a page that turns a click or a drag into the place of a note.
MouseArea {
    id: layer

    property var start: null
    property var now: null

    signal drawn(point from, point to)

    acceptedButtons: Qt.LeftButton
    preventStealing: true
    cursorShape: Qt.CrossCursor

    onPressed: mouse => {
        start = Qt.point(mouse.x, mouse.y);
        now = start;
    }
    onPositionChanged: mouse => now = Qt.point(mouse.x, mouse.y)
    onReleased: mouse => {
        const from = start;
        start = null;
        now = null;
        if (from)
            drawn(from, Qt.point(mouse.x, mouse.y));
    }
    onCanceled: {
        start = null;
        now = null;
    }

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
