pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The page of a ticket beside what it is compared with, and the bar under it.
Rectangle {
    id: canvas

    required property CompareModel compare
    required property PictureSource pictures

    readonly property var view: compare.bar
    readonly property real barHeight: bar.height
    property real zoom: view.zoom

    color: Theme.canvas

    Behavior on zoom {
        Glide {}
    }

    Flickable {
        id: stage

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: bar.top
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: canvas.view.scrolls
        contentWidth: canvas.view.scrolls ? Math.max(width, panes.width + 36) : width
        contentHeight: canvas.view.scrolls ? Math.max(height, panes.height + 28) : height

        readonly property size room: canvas.compare.paneRoom(Qt.size(width, height), repeater.count)

        Row {
            id: panes

            x: 18
            y: 14
            spacing: 16

            Repeater {
                id: repeater

                model: canvas.compare.panes

                Pane {
                    pictures: canvas.pictures
                    room: stage.room
                    picture: canvas.compare.fittedImage(stage.room, aspect, canvas.zoom)
                }
            }
        }
    }

    ScrollBar {
        view: stage
        visible: canvas.view.scrolls && shown < 1
    }

    ScrollBar {
        view: stage
        vertical: false
        visible: canvas.view.scrolls && shown < 1
    }

    Label {
        visible: text !== ""
        anchors.centerIn: stage
        color: Theme.muted
        size: Theme.large
        text: canvas.view.empty
    }

    CanvasBar {
        id: bar

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        compare: canvas.compare
    }
}
