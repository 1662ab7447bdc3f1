import QtQuick
import Vellix.Inspector
import Vellix.Pieces

// What is decided about a finding, and a note on it, in one row.
Item {
    id: row

    required property string decision
    required property bool issue
    required property bool fine
    required property bool busy
    required property bool noteable

    signal realIssue()
    signal markFine()
    signal noted()

    // That of the decision of that name; none for another word.
    function button(decision: string): Item {
        return { issue: issueButton, fine: fineButton }[decision] ?? null;
    }

    implicitHeight: issueButton.height + Theme.gap4

    Row {
        anchors.bottom: parent.bottom
        spacing: Theme.gap8

        StateButton {
            id: issueButton

            title: "Real issue"
            icon: "exclamationmark.triangle.fill"
            on: row.issue
            decision: row.decision
            color: Theme.strong.red
            onClicked: row.realIssue()
        }

        StateButton {
            id: fineButton

            title: "Fine"
            icon: "checkmark"
            on: row.fine
            decision: row.decision
            color: Theme.strong.green
            onClicked: row.markFine()
        }
    }

    LateSpinner {
        anchors.right: note.left
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: note.verticalCenter
        waits: row.busy
    }

    IconButton {
        id: note

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        // As high as the decisions beside it.
        width: issueButton.height
        height: issueButton.height
        size: 14
        symbol: "text.bubble"
        help: "Add a note to this"
        enabled: row.noteable
        onClicked: row.noted()
    }
}
