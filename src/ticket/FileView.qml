import QtQuick
import Vellix.Approval
import Vellix.Board
import Vellix.Compare
import Vellix.Jobs
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Ticket

// One ticket: its header, the strip of its pages, the canvas, and the panel beside it or, where it is
// narrow, over it.
Item {
    id: ticket

    required property FileModel file
    required property ReportModel report
    required property PlanModel plan
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share
    required property CompareModel compare
    required property NotesModel notes
    required property PictureSource pictures
    // What stands in the panel.
    required property Component panel

    readonly property notesPanelView side: file.notesPanel
    readonly property real barHeight: (canvas.item as CompareCanvas)?.barHeight ?? 0
    // What is there from the start comes without a show; from then on it is seen to move.
    property bool settled: false

    // For who was at the ticket before.
    function takeKeyboard() {
        header.takeKeyboard();
    }

    onWidthChanged: file.lay(width)
    Component.onCompleted: file.lay(width)

    Timer {
        running: ticket.compare.loaded && !ticket.settled
        interval: 50
        onTriggered: ticket.settled = true
    }

    ScrollArea {
        id: top

        // A low window keeps most of its room for the page.
        readonly property real highest: Math.max(96, ticket.height * 0.36, ticket.height - 560)

        width: parent.width
        // Whole, so that what lies below stands on whole pixels.
        height: Math.ceil(ticket.file.headerCut(header.ends, header.air, highest))
        label: "Ticket"
        contentHeight: header.implicitHeight

        FileHeader {
            id: header

            width: top.width
            file: ticket.file
            report: ticket.report
            plan: ticket.plan
            approval: ticket.approval
            send: ticket.send
            upload: ticket.upload
            share: ticket.share
            pictures: ticket.pictures
        }
    }

    // There is more below.
    Rectangle {
        anchors.bottom: top.bottom
        width: parent.width
        height: header.air
        visible: top.overflows && !top.atYEnd
        gradient: Gradient {
            GradientStop { position: 0; color: Qt.alpha(Theme.window, 0) }
            GradientStop { position: 1; color: Theme.window }
        }
    }

    ScrollBar {
        view: top
        stays: true
    }

    Hairline {
        id: rule

        anchors.top: top.bottom
        width: parent.width
    }

    Item {
        id: body

        anchors.top: rule.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        Item {
            id: strip

            height: parent.height
            width: ticket.file.showsStrip ? pages.width : 0
            clip: true

            Behavior on width {
                enabled: ticket.settled
                Glide {}
            }

            Loader {
                id: pages

                active: ticket.file.showsStrip || strip.width > 0
                anchors.right: parent.right
                height: parent.height

                sourceComponent: PageStrip {
                    file: ticket.file
                    pictures: ticket.pictures
                }
            }

            Hairline {
                anchors.right: parent.right
                vertical: true
                height: parent.height
            }
        }

        Loader {
            id: canvas

            anchors.left: strip.right
            anchors.right: dock.left
            height: parent.height
            active: ticket.compare.loaded

            sourceComponent: CompareCanvas {
                compare: ticket.compare
                notes: ticket.notes
                pictures: ticket.pictures
                notesOpen: ticket.side.open
                notesHelp: ticket.side.help
                onNotesWanted: ticket.file.openNotes()
                onNotesToggled: ticket.file.toggleNotes()
            }
        }

        Rectangle {
            visible: !ticket.compare.loaded
            anchors.fill: parent
            color: Theme.canvas

            Spinner {
                anchors.centerIn: parent
                size: 18
            }
        }

        Item {
            id: dock

            readonly property bool open: ticket.side.open && !ticket.side.floats

            anchors.right: parent.right
            height: parent.height
            width: open ? ticket.side.width : 0
            clip: true

            Behavior on width {
                enabled: ticket.settled
                Glide {}
            }

            Loader {
                active: dock.width > 0 && ticket.compare.loaded
                width: ticket.side.width
                height: parent.height
                sourceComponent: ticket.panel
            }

            Hairline {
                vertical: true
                height: parent.height
            }
        }

        Loader {
            id: floating

            // How far it has come in from the trailing edge.
            property real part: ticket.side.open && ticket.side.floats ? 1 : 0

            active: part > 0 && ticket.compare.loaded
            x: parent.width - part * (width + Theme.gap16)
            y: Theme.gap16
            height: parent.height - ticket.barHeight - 2 * Theme.gap16
            width: ticket.side.width
            opacity: part

            Behavior on part {
                enabled: ticket.settled
                Glide {}
            }

            sourceComponent: Rectangle {
                radius: Theme.radiusCard
                color: Theme.window

                Shadow {
                    anchors.fill: parent
                    z: -1
                    radius: Theme.radiusCard
                    color: Theme.shadow
                }

                Ground {
                    anchors.fill: parent
                }

                Loader {
                    anchors.fill: parent
                    anchors.margins: 4
                    sourceComponent: ticket.panel
                }
            }
        }
    }
}
