pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// Sends the ticket out: who is to approve, a line for them, and what follows. It closes before it
// asks for anything.
Sheet {
    id: sheet

    required property SendModel send

    readonly property sendSheetView view: send.sheet

    function begin() {
        adding.clear();
        line.text = "";
        open();
    }

    label: view.title
    first: adding.field
    confirm: "Send for approval"
    confirmIcon: "paperplane"
    canConfirm: view.canSend
    says: view.title
    trouble: view.trouble
    onConfirmed: send.send()
    onAboutToHide: send.end()

    Connections {
        target: sheet.send

        // Who was added is typed no more.
        function onTypedChanged() {
            if (!sheet.send.open || adding.email === sheet.send.adding)
                return;
            adding.email = sheet.send.adding;
            adding.name = sheet.send.addName;
            adding.take(Qt.OtherFocusReason);
        }
    }

    Label {
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: sheet.view.intro
    }

    SectionTitle {
        text: "APPROVERS"
    }

    Label {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: sheet.view.none
    }

    Column {
        id: people

        width: parent.width
        spacing: Theme.gap4

        Repeater {
            model: KeyedRows {
                by: "email"
                rows: sheet.view.approvers
            }

            Item {
                id: person

                required property pickedApproverView value

                width: people.width
                implicitHeight: box.implicitHeight + 4

                CheckBox {
                    id: box

                    width: Math.min(implicitWidth, person.width * 0.6)
                    anchors.verticalCenter: parent.verticalCenter
                    size: Theme.body
                    text: person.value.name
                    help: person.value.email
                    checked: person.value.picked
                    // Where another has moved under the pointer, they are not meant.
                    says: person.value.email
                    // Return is the sheet's; a box is ticked by Space.
                    Keys.forwardTo: [sheet.contentItem]
                    onToggled: checked => sheet.send.pick(person.value.email, checked)
                }

                Label {
                    anchors.left: box.right
                    anchors.leftMargin: Theme.gap8
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    elide: Text.ElideMiddle
                    size: Theme.note
                    color: Theme.faint
                    tellsWhole: true
                    text: person.value.email
                    Accessible.ignored: true
                }
            }
        }
    }

    AddApprover {
        id: adding

        width: parent.width
        example: sheet.view.example
        canAdd: sheet.view.canAdd
        onEmailChanged: {
            sheet.send.adding = adding.email;
            sheet.written();
        }
        onNameChanged: {
            sheet.send.addName = adding.name;
            sheet.written();
        }
        onAdded: sheet.send.add()
        onConfirmed: sheet.pressByKey()
    }

    SectionTitle {
        text: "A LINE FOR THEM"
    }

    TextField {
        id: line

        width: parent.width
        label: "A line for them"
        placeholder: "What to look at, or what changed (optional)"
        onTextChanged: {
            sheet.send.note = line.text;
            sheet.written();
        }
        onConfirmed: sheet.pressByKey()
    }

    SectionTitle {
        text: "AFTER SENDING"
    }

    Column {
        id: choices

        width: parent.width
        spacing: 2

        Accessible.role: Accessible.Grouping
        Accessible.name: "After sending"

        Repeater {
            model: sheet.view.after.length

            RadioRow {
                required property int index
                readonly property choiceView option: sheet.view.after[index]

                width: choices.width
                text: option.label
                chosen: option.key === sheet.view.then
                Keys.forwardTo: [sheet.contentItem]
                onClicked: sheet.send.setAfter(option.key)
            }
        }
    }

    Label {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.note
        color: Theme.faint
        text: sheet.view.hint
    }
}
