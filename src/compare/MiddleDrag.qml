import QtQuick

// The middle button drags the stage also where the left one draws.
MouseArea {
    required property point scroll  // how far the stage is

    signal dragged(real dx, real dy)

    property point from
    property point at

    acceptedButtons: Qt.MiddleButton
    cursorShape: pressed ? Qt.ClosedHandCursor : undefined
    onPressed: mouse => {
        from = scroll;
        at = Qt.point(mouse.x, mouse.y);
    }
    onPositionChanged: mouse => dragged(from.x + at.x - mouse.x - scroll.x,
                                        from.y + at.y - mouse.y - scroll.y)
}
