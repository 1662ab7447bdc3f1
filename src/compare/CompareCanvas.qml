pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// The page of a ticket beside what it is compared with, the loupe over it and the bar under it.
Rectangle {
    id: canvas

    required property CompareModel compare
    required property NotesModel notes
    required property PictureSource pictures

    // The notes panel beside it, and what its button says.
    required property bool notesOpen
    required property string notesHelp

    // Over all that lies on it, where that is elsewhere; as large as this.
    property Item above: canvas

    // The notes panel is wanted, or turned on and off.
    signal notesWanted()
    signal notesToggled()

    readonly property canvasBarView view: compare.bar
    readonly property real barHeight: bar.height
    property real zoom: view.zoom
    // The spot of the stage that stays where it is while a hand zooms.
    property point hand
    property bool shifting: false

    KeyboardPart {
        around: canvas
        also: card
        at: card.place
    }

    // What the loupe hides of the stage.
    readonly property real covered: compare.loupe.open ? loupe.height + 2 * Theme.gap12 : 0

    InSight {
        item: canvas
        onNowChanged: canvas.compare.setSeen(now)
        Component.onCompleted: canvas.compare.setSeen(now)
    }

    function takeKeyboard(reason: int) {
        bar.takeKeyboard(reason);
    }

    function scrollTo(to: point) {
        if (to.x === stage.contentX && to.y === stage.contentY)
            return;
        toX.to = to.x;
        toY.to = to.y;
        reveal.restart();
    }

    function relay() {
        reveal.stop();
        const anchor = compare.stage.glides ? Qt.point(stage.width / 2, stage.height / 2) : hand;
        const to = compare.stage.lay(Qt.size(stage.width, stage.height), zoom,
                                     Qt.point(stage.contentX, stage.contentY), anchor);
        stage.contentX = to.x;
        stage.contentY = to.y;
    }

    function pan(dx: real, dy: real) {
        reveal.stop();
        stage.contentX = Math.max(0, Math.min(stage.contentWidth - stage.width, stage.contentX + dx));
        stage.contentY = Math.max(0, Math.min(stage.contentHeight - stage.height, stage.contentY + dy));
    }

    color: Theme.canvas
    clip: true

    onZoomChanged: relay()
    Component.onCompleted: relay()

    Behavior on zoom {
        enabled: canvas.compare.stage.glides
        Glide {}
    }

    Connections {
        target: canvas.compare

        function onSelected() {
            canvas.scrollTo(canvas.compare.stage.revealSelected(Qt.point(stage.contentX, stage.contentY),
                                                                canvas.covered));
        }
        function onDrafted() { card.begin(); }
    }

    ParallelAnimation {
        id: reveal

        Glide { id: toX; target: stage; property: "contentX" }
        Glide { id: toY; target: stage; property: "contentY" }
    }

    Timer {
        id: shift

        interval: Theme.standard
        onTriggered: canvas.shifting = false
    }

    Flickable {
        id: stage

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: bar.top
        clip: true
        pixelAligned: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: canvas.compare.stage.layout.scrolls
        contentWidth: canvas.compare.stage.layout.width
        contentHeight: canvas.compare.stage.layout.height
        activeFocusOnTab: interactive

        Accessible.role: Accessible.Pane
        Accessible.name: "Pages"
        Accessible.focusable: interactive

        onWidthChanged: canvas.relay()
        onHeightChanged: canvas.relay()
        onMovementStarted: reveal.stop()
        // Less of it: what was shown may lie beyond its end.
        onContentWidthChanged: canvas.pan(0, 0)
        onContentHeightChanged: canvas.pan(0, 0)

        Keys.onPressed: event => {
            const step = 48;
            const across = { [Qt.Key_Left]: -step, [Qt.Key_Right]: step }[event.key]
                ?? keys.by(event.key, 0, 0, contentWidth);
            const down = keys.by(event.key, step, 0.9 * height, contentHeight);
            if (!interactive || (across === 0 && down === 0) || event.modifiers & ~Qt.KeypadModifier)
                return;
            event.accepted = true;
            canvas.pan(across, down);
        }

        ListKeys {
            id: keys
        }

        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedModifiers: Qt.ControlModifier
            target: null
            onWheel: event => {
                canvas.hand = stage.mapFromItem(stage.contentItem, event.x, event.y);
                canvas.compare.stage.wheel(event.angleDelta.y / 120);
            }
        }

        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedModifiers: Qt.ShiftModifier
            target: null
            onWheel: event => canvas.pan(-(event.angleDelta.y || event.angleDelta.x) / 2, 0)
        }

        PinchHandler {
            id: fingers

            target: null
            onActiveChanged: {
                if (!active)
                    canvas.compare.stage.endPinch();
            }
            onActiveScaleChanged: {
                if (!active)
                    return;
                canvas.hand = stage.mapFromItem(stage.contentItem, centroid.position.x, centroid.position.y);
                canvas.compare.stage.pinch(activeScale);
            }
        }

        Repeater {
            model: canvas.compare.panes

            Pane {
                compare: canvas.compare
                pictures: canvas.pictures
                shifting: canvas.shifting
                onNoteAsked: canvas.notesWanted()
                onSought: mark => {
                    const place = mark.mapToItem(stage.contentItem, 0, 0, mark.width, mark.height);
                    canvas.scrollTo(canvas.compare.stage.reveal(
                        place, Qt.point(stage.contentX, stage.contentY), canvas.covered));
                }
            }
        }
    }

    MiddleDrag {
        anchors.fill: stage
        enabled: stage.interactive
        scroll: Qt.point(stage.contentX, stage.contentY)
        onDragged: (dx, dy) => canvas.pan(dx, dy)
    }

    FocusRing {
        visible: stage.activeFocus && stage.interactive
        anchors.fill: stage
        anchors.margins: 1
        around: 0
    }

    StageBar {
        view: stage
        onPressedChanged: reveal.stop()
    }

    StageBar {
        view: stage
        vertical: false
        onPressedChanged: reveal.stop()
    }

    Label {
        visible: text !== ""
        anchors.centerIn: stage
        color: Theme.muted
        size: Theme.large
        text: canvas.view.empty
    }

    // Not in them: they take what falls on them also while they leave, disabled.
    Ground {
        visible: loupe.visible
        anchors.fill: loupe
    }

    Loupe {
        id: loupe

        anchors.left: stage.left
        anchors.right: stage.right
        anchors.bottom: stage.bottom
        anchors.margins: Theme.gap12
        height: implicitHeight
        compare: canvas.compare
        pictures: canvas.pictures
        takesEscape: !canvas.view.drafting
    }

    // Over all panes, the loupe and the panel that it was opened from, since it is wider than a narrow
    // page.
    Item {
        parent: canvas.above
        width: stage.width
        height: stage.height
        clip: true

        Ground {
            visible: card.visible
            anchors.fill: card
        }

        DraftCard {
            id: card

            x: canvas.compare.stage.card.x - stage.contentX
            y: canvas.compare.stage.card.y - stage.contentY
            notes: canvas.notes
            open: canvas.compare.stage.card.here
            onKeptOut: stage.forceActiveFocus(Qt.OtherFocusReason)
            onBegun: {
                const place = Qt.rect(canvas.compare.stage.card.x, canvas.compare.stage.card.y, width, height);
                canvas.scrollTo(canvas.compare.stage.reveal(
                    place, Qt.point(stage.contentX, stage.contentY), canvas.covered));
            }
        }
    }

    CanvasBar {
        id: bar

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        enabled: canvas.compare.loaded
        compare: canvas.compare
        notesOpen: canvas.notesOpen
        notesHelp: canvas.notesHelp
        onNotesToggled: canvas.notesToggled()
        onToggled: {
            canvas.shifting = Theme.standard > 0;
            shift.restart();
        }
    }
}
