pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// Where the round of approval stands, who was asked and answered, and what can be done next. The
// sheets that it opens stand elsewhere: they outlast the ticket's view.
Rectangle {
    id: card

    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload

    readonly property approvalCardView view: approval.card

    function press(button: approvalButtonView) {
        if (button.opens === "send")
            send.begin();
        else if (button.opens === "upload")
            upload.begin();
        else if (button.url !== "")
            Qt.openUrlExternally(button.url);
        else
            approval.press(button.key);
    }

    visible: view.here
    implicitHeight: content.implicitHeight + 2 * Theme.gap16
    radius: Theme.radiusCard
    color: Theme.raised
    border.width: 1
    border.color: Theme.quietFill

    Accessible.role: Accessible.Grouping
    Accessible.name: view.title

    Column {
        id: content

        x: Theme.gap16
        y: Theme.gap16
        width: parent.width - 2 * x
        spacing: Theme.gap8

        Item {
            width: parent.width
            height: Math.max(mark.height, title.implicitHeight)

            Rectangle {
                id: mark

                width: 26
                height: width
                radius: width / 2
                color: Theme.tint[card.view.tone] ?? Theme.quietFill

                Symbol {
                    visible: !card.view.checking
                    anchors.centerIn: parent
                    size: 14
                    name: card.view.icon
                    color: Theme.fore[card.view.tone] ?? Theme.muted
                }

                Spinner {
                    visible: card.view.checking
                    anchors.centerIn: parent
                    color: Theme.fore[card.view.tone] ?? Theme.muted
                }
            }

            Label {
                id: title

                anchors.left: mark.right
                anchors.leftMargin: Theme.gap8
                anchors.right: parent.right
                anchors.verticalCenter: mark.verticalCenter
                wrapMode: Text.Wrap
                maximumLineCount: 3
                elide: Text.ElideRight
                size: Theme.lead
                weight: Font.DemiBold
                text: card.view.title
                Accessible.role: Accessible.Heading
            }
        }

        Label {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.body
            color: Theme.muted
            text: card.view.line
        }

        Column {
            visible: answers.count > 0
            width: parent.width
            spacing: 2

            Accessible.role: Accessible.List
            Accessible.name: "Approvers"

            Repeater {
                id: answers

                model: KeyedRows {
                    by: "email"
                    rows: card.view.approvers
                }

                ApproverAnswer {
                    required property approverAnswerView value

                    width: content.width
                    answer: value
                }
            }
        }

        Repeater {
            model: KeyedRows {
                by: "email"
                rows: card.view.changes
            }

            ChangesAsked {
                required property changesAskedView value

                width: content.width
                changes: value
            }
        }

        FlowRow {
            visible: buttons.count > 0
            width: parent.width
            height: implicitHeight
            spacing: Theme.gap8

            Repeater {
                id: buttons

                model: KeyedRows {
                    rows: card.view.buttons
                }

                Pill {
                    required property approvalButtonView value

                    title: value.label
                    icon: value.icon
                    help: value.help
                    enabled: value.enabled
                    filled: !value.quiet
                    raised: value.quiet
                    color: value.quiet ? Theme.text : Theme.accent
                    Accessible.role: value.url !== "" ? Accessible.Link : Accessible.Button
                    // A press is for the round as it was seen.
                    says: card.view.title + value.label
                    onClicked: card.press(value)
                }
            }
        }
    }
}
