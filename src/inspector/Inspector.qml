import QtQuick
import Vellix.Approval
import Vellix.Inspector
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// The panel beside the page: what was found on it, and what waits on other pages; or the ticket's
// story.
Item {
    id: panel

    required property InspectorModel inspector
    required property NotesModel notes
    required property HistoryModel history
    required property PictureSource pictures

    readonly property findingsHead head: inspector.head
    // Another page's findings begin at their top.
    readonly property string place: head.file + " " + head.title

    readonly property bool tells: inspector.tab === "history"

    property bool showExpected: false

    // From a card that was decided by key the keyboard goes on.
    function goOn(card: FindingCard, way: keyboardWay) {
        if (card.keyed)
            (cards.itemAt(way.row) as FindingCard)?.takeKeyboard(way.decision);
    }

    function chosen(card: FindingCard) {
        showing.card = card;
        scroll.reveal(card);
        showing.restart();
    }

    function step(list: Repeater, index: int, by: int) {
        (list.itemAt(index + by) as FindingCard)?.takeKeyboard("");
    }

    onPlaceChanged: {
        scroll.contentY = 0;
        if (activeFocus)
            handing.restart();
    }

    Accessible.role: Accessible.Pane
    Accessible.name: tells ? "History" : "Findings"
    Accessible.focusable: true

    Keys.forwardTo: tells ? [] : [scroll]

    KeyboardHold {
        id: hold

        around: content
        onLostChanged: {
            if (lost && ringed)
                handing.restart();
        }
    }

    // What had the keyboard is gone, with its page say: the first finding has it then. Where there is
    // none the panel keeps it, and no field: the next key turns the page on.
    Timer {
        id: handing

        interval: 0
        onTriggered: {
            const first = cards.itemAt(0) as FindingCard;
            if (first && (hold.lost || panel.activeFocus))
                first.takeKeyboard("");
            else if (hold.lost)
                panel.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    FocusRing {
        visible: panel.activeFocus
        anchors.margins: 0
        around: -4
        z: 1
    }

    // Once more when the cards have come to rest.
    Timer {
        id: showing

        property FindingCard card: null

        interval: Theme.standard + 20
        onTriggered: if (card?.selected) scroll.reveal(card)
    }

    Segmented {
        id: sides

        x: Theme.gap16
        y: Theme.gap12
        tabs: true
        label: "Panel"
        options: [{ key: "page", label: "This page" }, { key: "history", label: "History" }]
        current: panel.inspector.tab
        onPicked: key => panel.inspector.tab = key
    }

    Loader {
        active: panel.tells
        anchors.top: sides.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        sourceComponent: HistorySide {
            history: panel.history
        }
    }

    ScrollArea {
        id: scroll

        visible: !panel.tells
        anchors.top: sides.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: content.implicitHeight

        Column {
            id: content

            x: Theme.gap16
            width: scroll.width - 2 * x
            topPadding: Theme.gap12
            bottomPadding: Theme.gap24
            spacing: Theme.gap8

            Column {
                width: parent.width
                bottomPadding: Theme.gap4
                spacing: 2

                Label {
                    width: parent.width
                    size: Theme.title
                    weight: Font.Bold
                    text: panel.head.title
                    Accessible.role: Accessible.Heading
                }

                Label {
                    size: Theme.note
                    color: Theme.faint
                    text: panel.head.found
                }
            }

            Label {
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.note
                color: Theme.strong.amber
                text: panel.head.notice
            }

            Column {
                visible: panel.head.calm !== ""
                width: parent.width
                topPadding: Theme.gap8
                bottomPadding: Theme.gap8
                spacing: Theme.gap4

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.row
                    weight: Font.DemiBold
                    text: panel.head.calm
                }

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.body
                    color: Theme.muted
                    text: panel.head.calmReason
                }
            }

            Repeater {
                id: cards

                model: panel.inspector.cards

                FindingCard {
                    required property int index

                    width: content.width
                    noteActions: panel.notes
                    pictures: panel.pictures
                    onRealIssue: panel.goOn(this, panel.inspector.realIssue(id))
                    onMarkFine: panel.goOn(this, panel.inspector.fine(id))
                    onNoted: panel.inspector.note(id)
                    onChosen: panel.inspector.press(id)
                    onSelectedChanged: if (selected) panel.chosen(this)
                    onStepped: by => panel.step(cards, index, by)
                }
            }

            PanelRow {
                visible: text !== ""
                width: content.width
                icon: "checkmark.seal"
                text: panel.head.passed
                open: panel.showExpected
                expandable: true
                expanded: open
                onClicked: panel.showExpected = !panel.showExpected
            }

            Item {
                visible: height > 0
                width: content.width
                height: panel.showExpected ? passedCards.implicitHeight : 0
                clip: unfolding.running

                Behavior on height {
                    Glide { id: unfolding }
                }

                Column {
                    id: passedCards

                    width: parent.width
                    spacing: Theme.gap8

                    Repeater {
                        id: passed

                        model: panel.inspector.passed

                        FindingCard {
                            required property int index

                            width: content.width
                            noteActions: panel.notes
                            pictures: panel.pictures
                            onChosen: panel.inspector.press(id)
                            onSelectedChanged: if (selected) panel.chosen(this)
                            onStepped: by => panel.step(passed, index, by)
                        }
                    }
                }
            }

            NotesSection {
                topPadding: Theme.gap12
                width: content.width
                notes: panel.notes
                pictures: panel.pictures
            }

            Label {
                visible: others.count > 0
                topPadding: Theme.gap12
                size: Theme.note
                weight: Font.DemiBold
                color: Theme.muted
                text: "Still open on other pages"
                Accessible.role: Accessible.Heading
            }

            Repeater {
                id: others

                model: panel.inspector.others

                PanelRow {
                    required property var model

                    width: content.width
                    framed: false
                    text: model.name
                    count: model.count
                    onClicked: panel.inspector.goToPage(model.page)
                }
            }
        }
    }

    ScrollBar {
        view: scroll
    }
}
