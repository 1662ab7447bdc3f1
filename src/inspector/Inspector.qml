import QtQuick
import Vellix.Approval
import Vellix.Compare
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
    // The page beside it, with the marks of the findings.
    property CompareModel compare: null

    readonly property findingsHead head: inspector.head
    // Another page's findings begin at their top.
    readonly property string place: head.file + " " + head.title

    readonly property bool tells: inspector.tab === "history"

    // From a card that was decided by key the keyboard goes on.
    function goOn(card: FindingCard, way: keyboardWay) {
        if (card.keyed)
            keyTo(cards.itemAt(way.row) as FindingCard, way.decision);
    }
    function keyTo(card: FindingCard, decision: string) {
        if (!card)
            return;
        card.takeKeyboard(decision);
        showing.card = card;
        showing.restart();
    }

    function chosen(card: FindingCard) {
        showing.card = card;
        scroll.reveal(card);
        showing.restart();
    }

    onPlaceChanged: {
        scroll.contentY = 0;
        scroll.stood = NaN;
        if (activeFocus)
            handing.restart();
    }

    Accessible.role: Accessible.Pane
    Accessible.name: tells ? "History" : "Findings"
    Accessible.focusable: true

    Keys.forwardTo: tells ? [] : [scroll]

    // Nobody writes unseen: the tabs have the keyboard until that is back.
    onTellsChanged: {
        if (tells && hold.inside)
            wrote.note(hold.inside);
        turning.restart();
    }

    Timer {
        id: turning

        interval: 0
        onTriggered: {
            const reason = wrote.ringed ? Qt.TabFocusReason : Qt.OtherFocusReason;
            if (panel.tells && wrote.item) {
                sides.thumbTarget?.forceActiveFocus(reason);
            } else if (!panel.tells) {
                if (atSides.inside)
                    wrote.giveBack(reason);
                wrote.item = null;
            }
        }
    }

    CameFrom {
        id: wrote
    }

    KeyboardHold {
        id: atSides

        around: sides
    }

    KeyboardPart {
        around: panel
    }

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
        // It is shown once the cards are.
        property bool waits: false

        interval: Theme.standard + 20
        onTriggered: {
            waits = !scroll.visible;
            if (!waits && (card?.selected || card?.keyed))
                scroll.reveal(card);
        }
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

        // Where what is written stood last: in the content, and in sight.
        property real stood: NaN
        property real spot: 0

        function standing(): real {
            return whole?.mapToItem(contentItem, 0, 0).y ?? NaN;
        }

        function note() {
            stood = standing();
            spot = stood - contentY;
        }

        // It stays on its spot when a poll brings something above it, unless it is out of sight.
        function keepSpot() {
            const now = standing();
            if (writes && Math.abs(now - stood) > 0.01 && spot < height && spot + whole.height > 0)
                goTo(now - spot);
            note();
        }

        visible: !panel.tells
        onVisibleChanged: {
            if (visible && showing.waits)
                showing.restart();
        }
        onWholeChanged: note()
        onContentHeightChanged: keepSpot()
        // Not where the content has become too short. What is mapped is no more exact than that.
        onContentYChanged: {
            if (Math.abs(standing() - stood) <= 0.01)
                note();
        }
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

            PageSummary {
                width: parent.width
                head: panel.head
            }

            LazyColumn {
                id: cards

                width: content.width
                spacing: content.spacing
                model: panel.inspector.cards
                alike: "folds"
                always: "selected"

                FindingCard {
                    required property int index

                    width: cards.width
                    noteActions: panel.notes
                    pictures: panel.pictures
                    compare: panel.compare
                    onRealIssue: panel.goOn(this, panel.inspector.realIssue(id))
                    onMarkFine: panel.goOn(this, panel.inspector.fine(id))
                    onNoted: panel.inspector.note(id)
                    onChosen: panel.inspector.press(id)
                    onSelectedChanged: if (selected) panel.chosen(this)
                    onStepped: by => (cards.itemAt(index + by) as FindingCard)?.takeKeyboard("")
                }
            }

            PassedChecks {
                visible: panel.head.passed !== ""
                width: content.width
                inspector: panel.inspector
                noteActions: panel.notes
                pictures: panel.pictures
                compare: panel.compare
                onPicked: card => panel.chosen(card)
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
