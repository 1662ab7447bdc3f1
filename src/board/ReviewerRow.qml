import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// One person to choose as the reviewer.
ListRow {
    id: row

    required property reviewerView person
    required property PictureSource pictures

    label: person.name
    implicitHeight: 44

    Accessible.role: Accessible.RadioButton
    Accessible.description: person.usually
    Accessible.checkable: true
    Accessible.checked: person.chosen
    // What a radio button offers first.
    Accessible.onToggleAction: row.click()

    Avatar {
        id: face

        x: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        who: row.person.avatar
        pictures: row.pictures
        size: 26
        Accessible.ignored: true
    }

    Column {
        anchors.left: face.right
        anchors.leftMargin: Theme.gap8
        anchors.right: mark.left
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter

        Label {
            width: parent.width
            weight: row.person.chosen ? Font.DemiBold : Font.Medium
            tellsWhole: true
            text: row.person.name
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            size: Theme.small
            color: Theme.faint
            text: row.person.usually
        }
    }

    Symbol {
        id: mark

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: 13
        name: row.person.chosen ? "checkmark" : ""
        color: Theme.accent
    }
}
