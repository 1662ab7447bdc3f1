import QtQuick
import Vellix.Compare
import Vellix.Inspector
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// One finding: open with its words and its decisions, folded to a line once it is decided, or, where
// there is nothing to decide, a line until it is selected.
Item {
    id: card

    required property string id
    required property string caption
    required property string title
    required property string detail
    required property var wordings
    required property string decision
    required property bool triage
    required property bool issue
    required property bool fine
    required property bool busy
    required property bool noteable
    required property bool selectable
    required property bool selected
    required property bool compact
    required property bool folds
    required property string decided
    required property string foldedIcon
    required property string foldedTone
    required property string foldedHelp
    required property var notes
    required property string noteCount
    required property NotesModel noteActions
    required property PictureSource pictures

    // Where its marks are.
    property CompareModel compare: null

    property bool expanded: false
    // It stands as it came: what changes from now on may be seen to.
    property bool settled: false
    readonly property PanelRow foldedRow: line.item as PanelRow
    readonly property NoteRows written: notesRoom.item as NoteRows
    readonly property bool editing: written?.editing ?? false
    readonly property bool hovered: (folded ? foldedRow?.hovered : open.hovered) ?? false
    // What is being written is not folded away.
    readonly property bool folded: folds && !expanded && !editing
    // What is out of sight must not be lost.
    readonly property bool stays: expanded || (written?.staying ?? false) || moving.running || gliding.running
    readonly property bool brief: compact && !selected && !editing
    // Whether the keyboard came to the card, and not the pointer.
    readonly property bool keyed: hold.held && hold.ringed

    signal realIssue()
    signal markFine()
    signal noted()
    signal chosen()
    // The arrow keys go from card to card.
    signal stepped(int by)

    // Gives the keyboard to the decision of that name, or to the card.
    function takeKeyboard(decision: string) {
        const one = folded ? foldedRow : (decisions.item as Triage)?.button(decision);
        (one ?? open).forceActiveFocus(Qt.TabFocusReason);
    }

    // What folds, opens or is chosen glides; what comes, or is laid out anew, is there at once.
    function glide() {
        if (settled)
            moving.restart();
    }

    implicitHeight: forms.implicitHeight

    Component.onCompleted: settled = true
    onSelectedChanged: {
        if (compact)
            glide();
    }
    onDecisionChanged: {
        if (decision !== "open")
            expanded = false;
    }
    // What folds, or opens, would drop the keyboard.
    onFoldedChanged: {
        glide();
        handing.restart();
    }

    Keys.onUpPressed: event => step(event, -1)
    Keys.onDownPressed: event => step(event, 1)

    function step(event: var, by: int) {
        event.accepted = open.activeFocus || (foldedRow?.activeFocus ?? false);
        if (event.accepted)
            stepped(by);
    }

    clip: gliding.running

    Behavior on implicitHeight {
        enabled: moving.running
        Glide { id: gliding }
    }

    Timer {
        id: moving

        interval: Theme.standard
    }

    // Once everything has its new place, and unless another card has the keyboard by then.
    Timer {
        id: handing

        interval: 0
        onTriggered: {
            if (card.keyed)
                card.takeKeyboard("");
        }
    }

    PointedFinding {
        id: pointer

        compare: card.compare
        finding: card.id
        under: card.hovered
    }

    KeyboardHold {
        id: hold

        around: card
    }

    // Comes to its new height once all that has changed with it is known.
    Column {
        id: forms

        width: parent.width

        WhenNeeded {
            id: line

            needed: card.folded
            visible: needed
            width: parent.width

            sourceComponent: PanelRow {
                pointed: pointer.pointed
                icon: card.foldedIcon
                iconColor: Theme.strong[card.foldedTone]
                waits: card.busy
                text: card.title
                help: card.foldedHelp
                count: card.noteCount
                countIcon: "text.bubble.fill"
                expandable: true
                countSpoken: card.notes.length === 1 ? "1 note" : card.notes.length + " notes"
                onClicked: card.expanded = true
            }
        }

        Pressable {
            id: open

            visible: !card.folded
            width: parent.width
            implicitHeight: words.implicitHeight
            radius: Theme.radiusRow
            pressedScale: 1
            label: card.title
            Accessible.role: Accessible.ListItem
            Accessible.description: card.caption
            Accessible.selectable: card.selectable
            Accessible.selected: card.selected
            onClicked: card.chosen()

            Rectangle {
                anchors.fill: parent
                radius: Theme.radiusRow
                color: card.brief ? Theme.hoverFill : Theme.raised
                border.width: card.brief ? 0 : 1
                border.color: card.selected ? Theme.selectedLine : Theme.quietFill

                Rectangle {
                    anchors.fill: parent
                    radius: parent.radius
                    color: Theme.hoverFill
                    opacity: pointer.pointed || open.hovered ? 1 : 0

                    Behavior on opacity {
                        NumberAnimation { duration: Theme.hover }
                    }
                }

                Rectangle {
                    anchors.fill: parent
                    radius: parent.radius
                    color: Theme.selectedFill
                    opacity: card.selected ? 1 : 0

                    Behavior on opacity {
                        NumberAnimation { duration: Theme.hover }
                    }
                }
            }

            Column {
                id: words

                x: Theme.gap12
                topPadding: card.brief ? Theme.gap8 : Theme.gap12
                bottomPadding: topPadding
                width: parent.width - 2 * x
                spacing: Theme.gap4

                FindingHeader {
                    width: parent.width
                    caption: card.caption
                    title: card.title
                    selected: card.selected
                    brief: card.brief
                }

                Label {
                    visible: text !== "" && !card.brief
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.body
                    color: Theme.muted
                    text: card.detail
                }

                BeforeAfter {
                    visible: card.wordings.length > 0 && !card.brief
                    topPadding: Theme.gap4
                    bottomPadding: Theme.gap4
                    width: parent.width
                    wordings: card.wordings
                }

                WhenNeeded {
                    id: decisions

                    needed: card.triage && !card.folded
                    visible: card.triage
                    width: parent.width

                    sourceComponent: Triage {
                        decision: card.decision
                        issue: card.issue
                        fine: card.fine
                        busy: card.busy
                        noteable: card.noteable
                        onRealIssue: card.realIssue()
                        onMarkFine: card.markFine()
                        onNoted: card.noted()
                    }
                }

                Label {
                    visible: text !== "" && !card.brief
                    width: parent.width
                    topPadding: 2
                    size: Theme.small
                    color: Theme.faint
                    text: card.decided
                }

                WhenNeeded {
                    id: notesRoom

                    needed: card.notes.length > 0
                    visible: needed && !card.brief
                    width: parent.width

                    sourceComponent: NoteRows {
                        topPadding: Theme.gap8
                        bottomPadding: Theme.gap4
                        whole: true
                        rows: card.notes
                        notes: card.noteActions
                        pictures: card.pictures
                        onEmptied: open.forceActiveFocus(Qt.TabFocusReason)
                    }
                }
            }
        }
    }
}
