import QtQuick
import Vellix.Compare
import Vellix.Inspector
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces

// What was checked and passed: summed up in a row, and one by one once that is asked for.
Column {
    id: checks

    required property InspectorModel inspector
    required property NotesModel noteActions
    required property PictureSource pictures
    property CompareModel compare: null

    property bool showExpected: false

    // A card is in front now.
    signal picked(FindingCard card)

    spacing: Theme.gap8

    PanelRow {
        width: parent.width
        icon: "checkmark.seal"
        text: checks.inspector.head.passed
        open: checks.showExpected
        expandable: true
        expanded: open
        onClicked: checks.showExpected = !checks.showExpected
    }

    Item {
        id: fold

        // How far it is open.
        property real part: checks.showExpected ? 1 : 0

        visible: part > 0
        width: parent.width
        height: part * list.implicitHeight
        clip: part < 1

        Behavior on part {
            Glide {}
        }

        LazyColumn {
            id: list

            width: parent.width
            spacing: Theme.gap8
            model: checks.inspector.passed
            always: "selected"

            FindingCard {
                required property int index

                width: list.width
                noteActions: checks.noteActions
                pictures: checks.pictures
                compare: checks.compare
                onChosen: checks.inspector.press(id)
                onSelectedChanged: if (selected) checks.picked(this)
                onStepped: by => (list.itemAt(index + by) as FindingCard)?.takeKeyboard("")
            }
        }
    }
}
