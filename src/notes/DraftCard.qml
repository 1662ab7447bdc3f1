import QtQuick
import Vellix.Notes
import Vellix.Pieces

// Where a note at a place of the page is written. It stands where its owner puts it, on a Ground.
Writing {
    id: card

    required property NotesModel notes
    // The place is on show.
    required property bool open

    readonly property string title: notes.draft.title
    // Where it is written, while it can be.
    readonly property Item place: open && visible ? field.place : null
    property real shown: open ? 1 : 0

    // It leaves with the keyboard, and what had that before has gone.
    signal keptOut()
    // The keyboard has come.
    signal begun()

    readonly property bool canPost: !notes.blank(notes.draftText)
    // A field takes no caret while it is being made.
    property bool made: false

    // The keyboard is wanted, once the card can be seen.
    function begin() {
        soon.back = false;
        soon.restart();
    }

    // The card is back with its page or its ticket.
    function comeBack() {
        soon.back = !soon.running || soon.back;
        soon.restart();
    }

    // Whether it would be taken from under somebody's hands.
    function keptBy(keyed: Item): bool {
        return (keyed?.visible ?? false) && ((keyed as TextEdit) !== null || (keyed as TextInput) !== null);
    }

    function load() {
        if (field.text === notes.draftText)
            return;
        field.text = notes.draftText;
        field.toEnd();
    }

    function leave() {
        soon.stop();
        picker.close();
        if (activeFocus && !before.giveBack(Qt.OtherFocusReason))
            keptOut();
        before.item = null;
    }

    function post() {
        InputMethod.commit();
        if (open && canPost)
            notes.postDraft();
    }

    width: 290
    height: 190
    visible: open || shown > 0
    opacity: shown
    scale: 0.97 + 0.03 * shown

    Accessible.role: Accessible.Grouping
    Accessible.name: title

    onConfirmed: post()
    onOpenChanged: {
        if (!made)
            return;
        if (open) {
            load();
            comeBack();
        } else {
            leave();
        }
        enabled = open;
    }
    // Behind a person's page the ticket waits unseen.
    onVisibleChanged: {
        if (made && visible && open)
            comeBack();
    }
    Component.onCompleted: {
        made = true;
        load();
        enabled = open;
        if (open)
            comeBack();
    }

    CameFrom {
        id: before
    }

    // Another draft begins anew. What leaves keeps its words.
    Connections {
        target: card.notes

        function onDraftTextChanged() {
            if (card.open)
                card.load();
        }
    }

    Behavior on shown {
        Glide {}
    }

    Timer {
        id: soon

        property bool back: false

        interval: 50
        onTriggered: {
            const keyed = card.Window.activeFocusItem;
            if (!card.visible || (back && keyed !== null && card.keptBy(keyed)))
                return;
            if (!card.activeFocus)
                before.note(keyed);
            field.take(Qt.OtherFocusReason);
            card.begun();
        }
    }

    Shortcut {
        sequence: "Esc"
        // Held down behind a person's page it ends that page, and no more.
        autoRepeat: false
        enabled: card.visible && card.open
        onActivated: card.notes.dropDraft()
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.raised
        border.width: 1
        border.color: Theme.line

        Shadow {
            anchors.fill: parent
            z: -1
            radius: Theme.radiusCard
            color: Theme.shadow
        }
    }

    Label {
        x: 14
        width: close.x - x - Theme.gap4
        anchors.verticalCenter: close.verticalCenter
        size: Theme.note
        weight: Font.DemiBold
        tellsWhole: true
        text: card.title
    }

    IconButton {
        id: close

        anchors.right: parent.right
        anchors.rightMargin: 10
        y: 6
        symbol: "xmark"
        size: 11
        width: 24
        height: 24
        help: "Discard (Esc)"
        onClicked: card.notes.dropDraft()
    }

    TextArea {
        id: field

        readonly property real room: people.y - y

        x: 14
        y: close.y + close.height
        width: parent.width - 2 * x
        height: Math.min(implicitHeight, room)
        label: "What needs fixing here?"
        placeholder: label
        plain: true
        minLines: 2
        size: Theme.note
        onTextChanged: {
            if (card.open)
                card.notes.draftText = text;
        }
    }

    ScrollArea {
        id: people

        // Room for the ring of the keyboard, which would be cut off.
        readonly property real air: 4

        // Where many are tagged, two lines stay to the text.
        height: Math.min(contentHeight, 78)
        anchors.bottom: send.top
        x: 9 - air
        width: parent.width - 2 * x
        contentHeight: picker.implicitHeight + 2 * air

        TagPicker {
            id: picker

            x: people.air
            y: people.air
            width: people.width - 2 * people.air
            height: implicitHeight
            tags: card.notes.draftTags
        }
    }

    Label {
        x: 14
        width: send.x - x - Theme.gap8
        anchors.verticalCenter: send.verticalCenter
        size: Theme.small
        color: Theme.muted
        text: Theme.keys("⌘↩ to post · Esc to cancel")
    }

    Pill {
        id: send

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 10
        title: "Post"
        filled: true
        color: Theme.accent
        enabled: card.canPost
        onClicked: card.post()
    }
}
