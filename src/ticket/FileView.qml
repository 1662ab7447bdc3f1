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
    readonly property alias barHeight: canvas.barHeight
    // What a toast leaves free of a panel over the page: all of it, or its trailing edge, where the
    // buttons of what is written stand.
    readonly property real kept: dock.floats && dock.open ? Math.min(dock.width + Theme.gap16, Math.max(0, width - 360)) : 0
    // What is there from the start comes without a show; from then on it is seen to move.
    property bool settled: false

    // For who was at the ticket before.
    function takeKeyboard() {
        header.takeKeyboard();
    }

    onWidthChanged: file.lay(width)
    Component.onCompleted: file.lay(width)

    Timer {
        running: !ticket.settled
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

            // It glides where somebody shows or hides it. That there is room for it, or is not any more,
            // is so at once.
            property real part: ticket.file.stripWanted ? 1 : 0

            height: parent.height
            // From the first, so that the page does not move when the others come.
            width: ticket.file.stripRoom ? part * pages.width : 0
            clip: true

            Behavior on part {
                Glide {}
            }

            Loader {
                id: pages

                active: ticket.file.showsStrip || (ticket.compare.loaded && strip.width > 0)
                anchors.right: parent.right
                width: 92
                height: parent.height

                sourceComponent: PageStrip {
                    file: ticket.file
                    pictures: ticket.pictures
                }
            }

            Hairline {
                visible: strip.width > 0
                anchors.right: parent.right
                vertical: true
                height: parent.height
            }
        }

        CompareCanvas {
            id: canvas

            anchors.left: strip.right
            anchors.right: parent.right
            anchors.rightMargin: dock.taken
            height: parent.height
            compare: ticket.compare
            notes: ticket.notes
            pictures: ticket.pictures
            notesOpen: ticket.side.open
            notesHelp: ticket.side.help
            above: overPanel
            onNotesWanted: ticket.file.openNotes()
            onNotesToggled: ticket.file.toggleNotes()
        }

        // Before the panel in Tab's way, since what is in it belongs to the canvas.
        Item {
            id: overPanel

            anchors.fill: canvas
            z: 1
        }

        LateSpinner {
            anchors.centerIn: canvas
            anchors.verticalCenterOffset: -canvas.barHeight / 2
            size: 18
            after: 250
            waits: !ticket.compare.loaded
        }

        TicketPanel {
            id: dock

            side: ticket.side
            content: ticket.panel
            loaded: ticket.compare.loaded
            moves: ticket.settled
            foot: canvas.barHeight
            onKeptOut: reason => canvas.takeKeyboard(reason)
        }
    }
}
