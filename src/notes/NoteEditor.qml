import QtQuick
import Vellix.Notes
import Vellix.Pieces

// A note's text while its author changes it.
Writing {
    id: editor

    required property NotesModel notes
    property alias text: field.text

    readonly property bool canSave: !notes.blank(field.text)

    // By a key the focus goes on with its ring.
    signal cancelled(bool byKey)
    signal saved(string text, bool byKey)

    function begin() {
        field.toEnd();
        field.take(Qt.OtherFocusReason);
    }

    function save(byKey: bool) {
        InputMethod.commit();
        if (canSave)
            saved(field.text, byKey);
    }

    implicitHeight: buttons.y + buttons.height

    onConfirmed: save(true)
    Keys.onEscapePressed: cancelled(true)

    TextArea {
        id: field

        width: parent.width
        label: "Note"
        placeholder: "Note"
        minLines: 2
        takesEscape: true
    }

    Row {
        id: buttons

        y: field.height + Theme.gap8
        anchors.right: parent.right
        spacing: Theme.gap8

        Pill {
            title: "Cancel"
            onClicked: editor.cancelled(visualFocus)
        }

        Pill {
            title: "Save"
            filled: true
            color: Theme.accent
            enabled: editor.canSave
            help: Theme.keys("Save (⌘↩)")
            onClicked: editor.save(visualFocus)
        }
    }
}
