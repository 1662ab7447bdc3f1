pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// Notes below one another. `rows` is a list of NoteRowViews.
Column {
    id: list

    required property var rows
    required property NotesModel notes
    required property PictureSource pictures

    // Each row is there, wherever it is.
    property bool whole: false
    property int edits: 0
    readonly property bool editing: edits > 0
    property int stayers: 0
    readonly property bool staying: stayers > 0

    // The last row has gone, and the keyboard with it.
    signal emptied()

    spacing: Theme.gap12

    KeyboardHold {
        id: hold

        around: list
    }

    // As wide as the longest number may be.
    CountBadge {
        id: widest

        visible: false
        filled: true
        text: {
            const all = list.rows;
            return all.length > 0 ? all[0].digits : "0";
        }
    }

    LazyColumn {
        id: each

        width: list.width
        spacing: list.spacing
        whole: list.whole
        model: KeyedRows {
            by: "id"
            rows: list.rows
        }

        NoteRow {
            required property noteRowView value

            width: each.width
            numberRoom: widest.width
            note: value
            notes: list.notes
            pictures: list.pictures
            onEditingChanged: list.edits += editing ? 1 : -1
            onStaysChanged: list.stayers += stays ? 1 : -1
            Component.onDestruction: {
                if (editing)
                    list.edits -= 1;
                if (stays)
                    list.stayers -= 1;
            }
        }

        // The keyboard goes on to the next row, else to the one before.
        onItemRemoved: (index, item) => {
            if (!hold.isIn(item))
                return;
            const beside = (each.itemAt(index) ?? each.itemAt(index - 1)) as NoteRow;
            if (beside && beside !== item)
                beside.take();
            else
                list.emptied();
        }
    }
}
