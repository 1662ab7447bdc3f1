import QtQuick
import Vellix.Pieces

// The clear surface over a page that turns a click or a drag into the place of a note. A drag holds
// its places in fractions of the page, which may change its size meanwhile.
MouseArea {
    id: layer

    property bool drawing: false
    property point start
    property point now
    // Where the pointer was on the screen when it was last heard of.
    property point pointer
    property bool touched: false

    // Which page it lies over: a drag does not go on to another.
    required property real page

    signal drawn(point from, point to)

    function follow(mouse: var) {
        const at = mapToGlobal(mouse.x, mouse.y);
        // A page that moves under a pointer at rest draws nothing.
        if (drawing && Math.abs(at.x - pointer.x) < 0.5 && Math.abs(at.y - pointer.y) < 0.5)
            return;
        pointer = at;
        now = Qt.point(mouse.x / width, mouse.y / height);
    }

    function placed(part: point): point {
        return Qt.point(part.x * width, part.y * height);
    }

    onPageChanged: drawing = false

    clip: true
    acceptedButtons: Qt.LeftButton
    // Two fingers pinch.
    preventStealing: !touched
    cursorShape: Qt.CrossCursor

    onPressed: mouse => {
        touched = mouse.source !== Qt.MouseEventNotSynthesized;
        follow(mouse);
        start = now;
        drawing = true;
    }
    onPositionChanged: mouse => follow(mouse)
    onReleased: mouse => {
        follow(mouse);
        const ends = drawing;
        drawing = false;
        if (ends)
            drawn(placed(start), placed(now));
    }
    onCanceled: drawing = false

    MarkFrame {
        readonly property point from: layer.placed(layer.start)
        readonly property point to: layer.placed(layer.now)

        visible: layer.drawing
        x: Math.min(from.x, to.x)
        y: Math.min(from.y, to.y)
        width: Math.abs(from.x - to.x)
        height: Math.abs(from.y - to.y)
        color: Theme.onPaper.accent
        line: 1.6
        dash: 5
        fill: 0.08
    }
}
