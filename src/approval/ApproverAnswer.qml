import QtQuick
import Vellix.Approval
import Vellix.Pieces

// One who was asked, and the answer.
Item {
    id: row

    required property approverAnswerView answer

    implicitWidth: Math.ceil(name.implicitWidth) + Theme.gap8 + pill.width
    implicitHeight: Math.max(name.implicitHeight, pill.implicitHeight) + 4

    Accessible.role: Accessible.ListItem
    Accessible.name: answer.spoken

    Label {
        id: name

        width: Math.min(implicitWidth, row.width - pill.width - Theme.gap8)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        tellsWhole: true
        help: truncated ? text : row.answer.email
        text: row.answer.name
        Accessible.ignored: true
    }

    ApprovalPill {
        id: pill

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        small: true
        pill: row.answer.pill
        Accessible.ignored: true
    }
}
