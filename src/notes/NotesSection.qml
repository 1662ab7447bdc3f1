import QtQuick
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// The notes of the page on show, and where to write one.
Column {
    id: section

    required property NotesModel notes
    required property PictureSource pictures

    spacing: Theme.gap12

    Label {
        size: Theme.note
        weight: Font.DemiBold
        color: Theme.muted
        text: "Notes"
        Accessible.role: Accessible.Heading
    }

    Label {
        visible: section.notes.rows.length === 0
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: "No notes on this page yet."
    }

    NoteRows {
        visible: section.notes.rows.length > 0
        width: parent.width
        rows: section.notes.rows
        notes: section.notes
        pictures: section.pictures
        onEmptied: composer.take()
    }

    Composer {
        id: composer

        width: parent.width
        notes: section.notes
    }
}
