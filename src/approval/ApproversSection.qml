pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// The list of the key approvers, and where one is added.
Card {
    id: section

    required property ApproversModel approvers

    readonly property approversSectionView view: approvers.section

    title: "Key approvers"

    Label {
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.note
        color: Theme.muted
        text: "The creative team who approve proofs. They open a link in their browser and sign in with Google."
    }

    Label {
        visible: text !== ""
        width: parent.width
        size: Theme.body
        color: Theme.muted
        text: section.view.none
    }

    Column {
        id: list

        width: parent.width

        Accessible.role: Accessible.List
        Accessible.name: section.title

        KeyboardHold {
            id: hold

            around: list
        }

        Repeater {
            id: people

            model: KeyedRows {
                by: "email"
                rows: section.view.rows
            }

            Item {
                id: person

                required property keyApproverView value

                function take() {
                    remove.forceActiveFocus(hold.ringed ? Qt.TabFocusReason : Qt.OtherFocusReason);
                }

                width: list.width
                height: 40

                Accessible.role: Accessible.ListItem
                Accessible.name: value.name + ", " + value.email

                Column {
                    anchors.left: parent.left
                    anchors.right: remove.left
                    anchors.rightMargin: Theme.gap8
                    anchors.verticalCenter: parent.verticalCenter

                    Label {
                        width: parent.width
                        weight: Font.Medium
                        tellsWhole: true
                        text: person.value.name
                        Accessible.ignored: true
                    }

                    Label {
                        width: parent.width
                        elide: Text.ElideMiddle
                        size: Theme.small
                        color: Theme.faint
                        tellsWhole: true
                        text: person.value.email
                        Accessible.ignored: true
                    }
                }

                IconButton {
                    id: remove

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    symbol: "minus.circle"
                    help: person.value.removeHelp
                    // The keyboard stays until the row goes.
                    idle: section.view.saving
                    opacity: idle ? 0.45 : 1
                    // Where the row of another has moved under the pointer, that is not meant.
                    says: person.value.email
                    onClicked: section.approvers.remove(person.value.email)
                }
            }

            // The keyboard goes on to the next row, else to the one before.
            onItemRemoved: (index, item) => {
                if (!hold.isIn(item))
                    return;
                const beside = people.itemAt(index) ?? people.itemAt(index - 1);
                if (beside && beside !== item)
                    beside.take();
                else
                    adding.take(Qt.TabFocusReason);
            }
        }
    }

    AddApprover {
        id: adding

        width: parent.width
        example: section.view.example
        enabled: section.view.here
        canAdd: section.view.canAdd
        onEmailChanged: section.approvers.adding = adding.email
        onNameChanged: section.approvers.addName = adding.name
        onAdded: {
            section.approvers.add();
            adding.take(Qt.OtherFocusReason);
        }
    }

    Connections {
        target: section.approvers

        // Who was added is typed no more, nor what a session that has ended left behind.
        function onTypedChanged() {
            adding.email = section.approvers.adding;
            adding.name = section.approvers.addName;
        }
    }
}
