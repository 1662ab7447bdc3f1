import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// The tickets in their groups. One stop in Tab's way. The arrow keys are not the list's: from row to
// row go the program's commands, by `step`; by screenfuls and to the ends the page keys, Home and End.
ListView {
    id: rows

    required property BoardModel board
    required property PictureSource pictures

    // The keyboard goes so many rows on, or back, from the row that has it or the ticket on show.
    function step(by: int) {
        const from = activeFocus ? currentIndex : board.chosenRow();
        go(board.rowFrom(from, from < 0 ? 1 : by));
    }
    // It stays where it is from now on.
    function rest() {
        glide.stop();
        laid.stop();
    }

    leftMargin: Theme.gap8
    rightMargin: Theme.gap8
    bottomMargin: Theme.gap16
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    // Rows are made as they come into view: what is made ahead is in the way when rows go.
    cacheBuffer: 0
    model: rows.board.rows
    activeFocusOnTab: count > 0
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    // The row that has the keyboard, which is not let go when it is scrolled away; else none.
    currentIndex: -1

    // That is the ticket on show.
    property bool atChosen: false

    // A list that fills from nothing is there at once; from then on its rows are seen to move.
    property bool settled: false
    onCountChanged: settled = settled && count > 0

    Timer {
        running: rows.count > 0 && !rows.settled
        interval: 100
        onTriggered: rows.settled = true
    }

    // Brings a row into sight at once, unless the list is on its way there.
    function place(row: int) {
        if (row < 0 || (glide.running && glide.row === row && itemAtIndex(row)))
            return;
        glide.stop();
        // Rows that wait to be made would be taken for far away.
        forceLayout();
        reveal.place(row);
        laid.row = row;
        laid.restart();
    }
    // Glides there, from afar the last of the way.
    function show(row: int) {
        rest();
        if (!settled || Theme.standard === 0)
            return place(row);
        // Rows that came and went this moment stand where they stood until then.
        forceLayout();
        const from = contentY;
        reveal.place(row);
        glide.to = contentY;
        contentY = Math.max(contentY - height, Math.min(from, contentY + height));
        glide.row = row;
        glide.from = contentY;
        glide.start();
    }
    // Gives a row the keyboard.
    function go(row: int) {
        place(row);
        (itemAtIndex(row) as FileLine)?.takeKeyboard();
    }
    // To the ticket on show; but where another row had it that has gone, to the one in its place.
    function take() {
        const chosen = currentIndex < 0 || atChosen ? rows.board.chosenRow() : -1;
        const near = Math.max(-1, Math.min(currentIndex, count) - 1);
        const next = rows.board.rowFrom(near, 1);
        go(chosen >= 0 ? chosen : next > near ? next : rows.board.rowFrom(near + 1, -1));
    }
    // As many rows as a screenful leads on.
    function page(): int {
        const first = indexAt(0, contentY);
        const last = indexAt(0, contentY + height - 1);
        return first < 0 || last < 0 ? count : Math.max(1, last - first - 1);
    }

    onActiveFocusChanged: {
        if (activeFocus && Window.activeFocusItem === rows)
            take();
        // A window that others cover for a while comes back as it was.
        if (!activeFocus && Window.active)
            currentIndex = -1;
    }
    onMovementStarted: rest()

    Keys.onPressed: event => {
        const by = keys.by(event.key, 0, page(), count);
        if (by === 0 || event.modifiers & ~Qt.KeypadModifier)
            return;
        event.accepted = true;
        go(rows.board.rowFrom(currentIndex, by));
    }

    ListKeys {
        id: keys
    }

    KeyboardHold {
        id: hold

        around: rows
        onKeyedChanged: {
            if (inside && !(inside as PressArea))
                handing.restart();
        }
    }

    // The row that had it has gone.
    Timer {
        id: handing

        interval: 0
        onTriggered: {
            if (hold.inside && !(hold.inside as PressArea))
                rows.take();
        }
    }

    RowReveal {
        id: reveal

        list: rows
    }

    Glide {
        id: glide

        property int row: -1

        target: rows
        property: "contentY"
        onFinished: {
            laid.row = row;
            laid.restart();
        }
    }

    // Once the rows have their true heights.
    Timer {
        id: laid

        property int row: -1

        interval: 0
        onTriggered: reveal.place(row)
    }

    // What was selected before there was a list.
    Timer {
        running: true
        interval: 0
        onTriggered: rows.place(rows.board.chosenRow())
    }

    Connections {
        target: rows.board

        function onFollowed(row: int) {
            rows.show(row);
        }
    }

    TabOrder {
        id: order

        content: rows.contentItem
    }

    Accessible.role: Accessible.List
    Accessible.name: "Tickets"
    Accessible.description: Theme.keys("⌥↑ and ⌥↓ lead from ticket to ticket, from anywhere; here Page Up and "
                                       + "Page Down go by screenfuls, Home and End to either end")

    delegate: FileLine {
        id: line

        readonly property bool onShow: ticket.selected

        width: rows.width - rows.leftMargin - rows.rightMargin
        board: rows.board
        pictures: rows.pictures

        Component.onCompleted: order.sortSoon()
        onIndexChanged: order.sortSoon()
        // What is under the hand stays there.
        onHeldChanged: {
            if (held)
                rows.rest();
        }
        onOnShowChanged: {
            if (keyed)
                rows.atChosen = onShow;
        }
        onKeyedChanged: {
            if (!keyed)
                return;
            rows.atChosen = onShow;
            rows.currentIndex = index;
            rows.place(index);
        }
    }

    add: Transition {
        id: coming

        enabled: rows.settled

        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.standard }
        Glide { property: "y"; from: coming.ViewTransition.destination.y - 20 }
    }
    remove: Transition {
        id: going

        NumberAnimation { property: "opacity"; to: 0; duration: Theme.hover }
        Glide { property: "y"; to: going.ViewTransition.destination.y - 20 }
    }
    move: Transition {
        Glide { property: "y" }
    }
    displaced: Transition {
        Glide { property: "y" }
        // A row may be pushed aside while it still fades in.
        NumberAnimation { property: "opacity"; to: 1; duration: Theme.hover }
    }
}
