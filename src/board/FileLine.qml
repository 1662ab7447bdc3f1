import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// A line of the list: the header of a group, or a ticket.
Loader {
    id: line

    required property int index
    required property bool header
    required property string title
    required property bool folds
    required property bool open
    required property string count
    required property fileRowView ticket
    // To hold it keeps the row's values from being made anew.
    required property var kept
    required property BoardModel board
    required property PictureSource pictures

    // What there is to press.
    readonly property PressArea button: header ? (item as GroupHeader)?.button ?? null : item as PressArea
    readonly property bool keyed: button?.activeFocus ?? false
    readonly property bool held: button?.pressed ?? false

    // With the ring.
    function takeKeyboard() {
        button?.forceActiveFocus(Qt.TabFocusReason);
    }

    // The list gives the keyboard to a line when another goes; who has it there is to be told first.
    onActiveFocusChanged: {
        if (!activeFocus && button && Window.active)
            button.focus = false;
    }

    sourceComponent: header ? groupHeader : ticketRow

    Component {
        id: groupHeader

        GroupHeader {
            title: line.title
            folds: line.folds
            open: line.open
            count: line.count
            onToggled: line.board.toggleReviewed()
        }
    }

    Component {
        id: ticketRow

        FileRow {
            ticket: line.ticket
            pictures: line.pictures
            activeFocusOnTab: false
            onChosen: command => line.board.select(line.ticket.id, command)
            Keys.onPressed: event => event.accepted = line.board.selectByKey(
                line.ticket.id, event.key, event.modifiers, event.isAutoRepeat)
        }
    }
}
