import QtQuick
import Vellix.Pieces

// The thin bar of a Flickable: lay it over the view, outside its content. It shows while the view
// moves or the pointer is over it, and can be dragged.
PressArea {
    id: bar

    required property Flickable view
    property bool vertical: true

    readonly property real shown: vertical ? view.visibleArea.heightRatio : view.visibleArea.widthRatio
    readonly property real start: vertical ? view.visibleArea.yPosition : view.visibleArea.xPosition
    readonly property real room: (vertical ? height : width) - 4
    readonly property real knobLength: Math.max(24, room * shown)
    property bool stays: false  // shows also at rest
    readonly property bool awake: stays || hovered || pressed || view.moving
    // Where on the knob the pointer took hold, in the bar's direction.
    property real grip: 0
    property bool gripped: false

    function drag(at: real) {
        const part = room > knobLength ? (at - 2 - grip) / (room - knobLength) : 0;
        const held = Math.max(0, Math.min(1, part));
        if (vertical)
            view.contentY = view.originY + held * (view.contentHeight - view.height);
        else
            view.contentX = view.originX + held * (view.contentWidth - view.width);
    }

    anchors.right: view.right
    anchors.bottom: view.bottom
    anchors.top: vertical ? view.top : undefined
    anchors.left: vertical ? undefined : view.left
    implicitWidth: 11
    implicitHeight: 11
    visible: view.visible && shown < 1 && shown > 0
    activeFocusOnTab: false
    holdsPointer: true
    Accessible.ignored: true

    onHeld: position => {
        const at = vertical ? position.y : position.x;
        const start = vertical ? knob.y : knob.x;
        if (!gripped)
            grip = at >= start && at <= start + knobLength ? at - start : knobLength / 2;
        gripped = true;
        drag(at);
    }
    onPressedChanged: {
        if (!pressed)
            gripped = false;
    }

    Rectangle {
        id: knob

        readonly property real travel: bar.shown < 1 ? bar.start / (1 - bar.shown) : 0
        readonly property real at: 2 + Math.max(0, Math.min(1, travel)) * (bar.room - bar.knobLength)

        x: bar.vertical ? (bar.hovered || bar.pressed ? 2 : 4) : at
        y: bar.vertical ? at : (bar.hovered || bar.pressed ? 2 : 4)
        width: bar.vertical ? bar.width - x - 2 : bar.knobLength
        height: bar.vertical ? bar.knobLength : bar.height - y - 2
        radius: Math.min(width, height) / 2
        color: Theme.muted
        opacity: bar.awake ? 0.45 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.standard }
        }
    }
}
