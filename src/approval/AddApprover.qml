import QtQuick
import Vellix.Pieces

// Where an approver is typed: the address, a name, and the button that adds them. What is typed is
// the owner's.
Item {
    id: row

    required property string example
    required property bool canAdd
    property alias email: address.text
    property alias name: called.text

    signal added()
    // Return, while there is nothing to add.
    signal confirmed()

    readonly property Item field: address.field

    function take(reason: int) {
        address.take(reason);
    }

    function clear() {
        address.text = "";
        called.text = "";
    }

    function press() {
        if (canAdd) {
            justAdded.restart();
            added();
        } else if (row.email.trim() === "" && row.name.trim() === "" && !justAdded.running) {
            confirmed();
        }
    }

    // The second of two quick presses confirms nothing.
    Timer {
        id: justAdded

        interval: Application.styleHints.mouseDoubleClickInterval
    }

    implicitHeight: address.implicitHeight

    TextField {
        id: address

        width: (button.x - 2 * Theme.gap8) * 0.6
        label: "Address"
        placeholder: row.example
        onConfirmed: row.press()
    }

    TextField {
        id: called

        anchors.left: address.right
        anchors.leftMargin: Theme.gap8
        anchors.right: button.left
        anchors.rightMargin: Theme.gap8
        label: "Name"
        placeholder: label
        onConfirmed: row.press()
    }

    Pill {
        id: button

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        title: "Add"
        enabled: row.canAdd
        onClicked: {
            InputMethod.commit();
            row.press();
        }
    }
}
