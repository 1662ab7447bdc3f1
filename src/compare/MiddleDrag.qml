import QtQuick

// The middle button drags the stage also where the left one draws.
MouseArea {
    id: drag

    required property Flickable stage

    signal dragged(real dx, real dy)

    property point from
    property point at

    acceptedButtons: Qt.MiddleButton
    enabled: stage.interactive
    cursorShape: pressed ? Qt.ClosedHandCursor : undefined
    onPressed: mouse => {
        from = Qt.point(stage.contentX, stage.contentY);
        at = Qt.point(mouse.x, mouse.y);
    }
    onPositionChanged: mouse => dragged(from.x + at.x - mouse.x - stage.contentX,
                                        from.y + at.y - mouse.y - stage.contentY)
}
