// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
import QtQuick
import Vellix.Compare
import Vellix.Pieces

// One ticket: its header, the canvas, and the panel beside it or, where it is narrow, over it.
Item {
    id: file

    required property CompareModel compare
    required property PictureSource pictures
    // What stands in the panel.
    required property Component panel

    readonly property var notes: compare.notes
    readonly property real barHeight: (canvas.item as CompareCanvas)?.barHeight ?? 0

    onWidthChanged: compare.layNotes(width)
    Component.onCompleted: compare.layNotes(width)

    FileHeader {
        id: header

        width: parent.width
        header: file.compare.header
    }

    Hairline {
        id: rule

        anchors.top: header.bottom
        width: parent.width
    }

    Item {
        id: body

        anchors.top: rule.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        Loader {
            id: canvas

            anchors.fill: parent
            anchors.rightMargin: dock.width
            active: file.compare.loaded

            sourceComponent: CompareCanvas {
                compare: file.compare
                pictures: file.pictures
            }
        }

        Rectangle {
            visible: !file.compare.loaded
            anchors.fill: parent
            color: Theme.canvas

            Spinner {
                anchors.centerIn: parent
                size: 18
            }
        }

        Item {
            id: dock

            readonly property bool open: file.notes.open && !file.notes.floats

            anchors.right: parent.right
            height: parent.height
            width: open ? file.notes.width : 0
            clip: true

            Behavior on width {
                Glide {}
            }

            Loader {
                active: dock.width > 0 && file.compare.loaded
                width: file.notes.width
                height: parent.height
                sourceComponent: file.panel
            }

            Hairline {
                vertical: true
                height: parent.height
            }
        }

        Loader {
            active: file.notes.open && file.notes.floats && file.compare.loaded
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap16
            y: Theme.gap16
            height: parent.height - file.barHeight - 2 * Theme.gap16
            width: file.notes.width

            sourceComponent: Rectangle {
                radius: Theme.radiusCard
                color: Theme.window

                Shadow {
                    anchors.fill: parent
                    z: -1
                    radius: Theme.radiusCard
                    color: Theme.shadow
                }

                Loader {
                    anchors.fill: parent
                    anchors.margins: 4
                    sourceComponent: file.panel
                }
            }
        }
    }
}
