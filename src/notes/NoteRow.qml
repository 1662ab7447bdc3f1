import QtQuick
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// A note as it is read, and as its author changes it.
Item {
    id: row

    required property noteRowView note
    required property NotesModel notes
    required property PictureSource pictures
    // In all rows of a list alike, also for a note without a number.
    property real numberRoom: badge.width

    property bool editing: false

    readonly property Menu menu: place.object as Menu
    // What is out of sight must not be lost.
    readonly property bool stays: editing || (menu?.visible ?? false)
    readonly property real pad: note.tagged ? Theme.gap8 : 0

    // Gives the keyboard to the row, as after a row beside it has gone.
    function take() {
        resolve.forceActiveFocus(Qt.TabFocusReason);
    }

    // What its author opens and closes glides; what polls bring is there at once.
    function edit(now: bool) {
        moving.restart();
        editing = now;
    }

    function stopEditing(byKey: bool) {
        if ((editor.item as NoteEditor).activeFocus)
            more.forceActiveFocus(byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
        // What is around the row may fold now.
        edit(false);
    }

    function pick(key: string) {
        if (key === "edit") {
            edit(true);
            // Once: what others make of the note meanwhile does not change what is being written.
            const written = editor.item as NoteEditor;
            written.text = note.text;
            written.begin();
            // The menu gives the keyboard back when it has gone.
            menu.cameFrom.note(written);
        } else if (deletion.press(menu.pointed)) {
            menu.close();
            notes.remove(note.id);
        }
    }

    implicitHeight: body.implicitHeight + 2 * pad

    Accessible.role: Accessible.ListItem
    Accessible.name: note.spoken

    NoteDeletion {
        id: deletion
    }

    Timer {
        id: moving

        interval: Theme.standard
    }

    // Its padding lies around the columns that the row shares with those beside it.
    Rectangle {
        visible: row.note.tagged
        x: -row.pad
        width: row.width + 2 * row.pad
        height: row.height
        radius: Theme.radiusRow
        color: Theme.tint.amber
    }

    Column {
        id: body

        y: row.pad
        width: row.width
        spacing: Theme.gap4

        Item {
            id: head

            width: parent.width
            height: Math.max(26, told.height)

            CountBadge {
                id: badge

                visible: row.note.number > 0
                x: (row.numberRoom - width) / 2
                y: 4
                filled: true
                text: row.note.number
            }

            Avatar {
                id: face

                x: row.numberRoom + 6
                y: 3
                who: row.note.who
                pictures: row.pictures
            }

            FlowRow {
                id: told

                anchors.left: face.right
                anchors.leftMargin: Theme.gap8
                anchors.right: resolve.left
                anchors.rightMargin: Theme.gap4
                y: Math.max(0, (26 - height) / 2)
                height: implicitHeight
                spacing: 5

                Label {
                    width: Math.min(implicitWidth, told.width)
                    size: Theme.body
                    weight: Font.DemiBold
                    tellsWhole: true
                    text: row.note.name
                }

                Label {
                    width: Math.min(implicitWidth, told.width)
                    size: Theme.small
                    color: row.note.tagged ? Theme.muted : Theme.faint
                    text: row.note.when
                }
            }

            IconButton {
                id: resolve

                anchors.right: more.left
                symbol: row.note.resolved ? "checkmark.circle.fill" : "circle"
                help: row.note.resolveHelp
                color: row.note.resolved ? Theme.success : Theme.muted
                opacity: row.note.busy ? 0.45 : 1
                says: row.note.resolved
                onClicked: row.notes.resolve(row.note.id)
            }

            IconButton {
                id: more

                // Its room is held where there is none.
                anchors.right: parent.right
                visible: row.note.mine
                symbol: "ellipsis"
                help: "Edit or delete"
                checked: row.menu?.visible ?? false
                expandable: true
                expanded: checked
                onClicked: (place.made() as Menu).openAt(visualFocus)

                OnDemand {
                    id: place

                    Menu {
                        parent: more
                        x: more.width - width
                        y: more.height + Theme.gap4
                        goesAlong: true
                        label: "Note"
                        entries: [
                            { key: "edit", text: "Edit",
                              help: row.note.editable ? "" : "This note is too long to edit here",
                              enabled: row.note.editable && !row.note.busy && !row.editing },
                            { key: "delete", enabled: !row.note.busy, stays: true,
                              text: deletion.asked ? "Delete this note?" : "Delete…" }
                        ]
                        onPicked: key => row.pick(key)
                    }
                }
            }
        }

        Item {
            width: parent.width
            height: row.editing ? editor.implicitHeight : words.implicitHeight
            clip: gliding.running

            Behavior on height {
                enabled: moving.running
                Glide { id: gliding }
            }

            Label {
                id: words

                visible: !row.editing
                x: face.x + face.width + Theme.gap8
                width: parent.width - x
                wrapMode: Text.Wrap
                size: Theme.body
                color: row.note.resolved ? Theme.muted : Theme.text
                text: row.note.text
            }

            // As high as its room, so that what scrolls around it goes along with it.
            Loader {
                id: editor

                active: row.editing
                visible: active
                width: parent.width
                height: parent.height

                sourceComponent: NoteEditor {
                    notes: row.notes
                    onCancelled: byKey => row.stopEditing(byKey)
                    onSaved: (text, byKey) => {
                        row.notes.save(row.note.id, text);
                        row.stopEditing(byKey);
                    }
                }
            }
        }

        TagChips {
            x: face.x + face.width + Theme.gap8
            width: parent.width - x
            height: implicitHeight
            tags: row.note.tags
        }
    }
}
