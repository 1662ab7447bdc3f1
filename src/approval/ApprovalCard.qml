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

    // What had the keyboard has gone with its state.
    signal keptOut()

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

    // With room to spare, what can be done stands beside the words.
    readonly property bool wide: width >= 640

    visible: view.here
    implicitHeight: content.y + content.implicitHeight + Theme.gap12
                    + (wide || buttons.height === 0 ? 0 : Theme.gap12 + buttons.height)
    radius: Theme.radiusCard
    color: Theme.raised
    border.width: 1
    border.color: Theme.quietFill

    Accessible.role: Accessible.Grouping
    Accessible.name: view.title
    Accessible.description: view.checking ? "Being checked" : ""

    KeyboardHold {
        id: hold

        around: buttons
    }

    // Once all buttons are there that come with the state.
    Timer {
        id: handing

        interval: 0
        onTriggered: {
            if (hold.held && hold.ringed && !hold.inside)
                card.keptOut();
        }
    }

    Column {
        id: content

        x: Theme.gap16
        y: Theme.gap12
        width: parent.width - 2 * x
        spacing: Theme.gap8

        Item {
            width: parent.width
            height: Math.max(mark.height, words.height, card.wide ? buttons.height : 0)

            Rectangle {
                id: mark

                width: 32
                height: width
                radius: width / 2
                color: Theme.tint[card.view.tone] ?? Theme.quietFill

                Symbol {
                    visible: !card.view.checking
                    anchors.centerIn: parent
                    size: 16
                    name: card.view.icon
                    color: Theme.fore[card.view.tone] ?? Theme.muted
                }

                Spinner {
                    visible: card.view.checking
                    anchors.centerIn: parent
                    color: Theme.fore[card.view.tone] ?? Theme.muted
                }
            }

            Column {
                id: words

                // A lone title stands beside the middle of the mark.
                y: Math.max(0, (mark.height - implicitHeight) / 2)
                x: mark.width + Theme.gap12
                width: parent.width - x - (card.wide ? buttons.width + Theme.gap24 : 0)
                spacing: 2

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    maximumLineCount: 3
                    elide: Text.ElideRight
                    tellsWhole: true
                    size: Theme.lead
                    weight: Font.DemiBold
                    text: card.view.title
                    Accessible.role: Accessible.Heading
                }

                Label {
                    visible: text !== ""
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.body
                    color: Theme.muted
                    text: card.view.line
                }

                FlowRow {
                    visible: answers.count > 0
                    width: parent.width
                    height: implicitHeight
                    spacing: Theme.gap12

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

                            width: Math.min(implicitWidth, words.width)
                            height: implicitHeight
                            answer: value
                        }
                    }
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
    }

    FlowRow {
        id: buttons

        x: card.wide ? card.width - width - Theme.gap16 : Theme.gap16
        y: card.wide ? content.y : content.y + content.height + Theme.gap12
        width: card.wide ? Math.min(implicitWidth, content.width / 2) : content.width
        height: implicitHeight
        spacing: Theme.gap8

        Repeater {
            model: KeyedRows {
                rows: card.view.buttons
            }
            onItemRemoved: handing.restart()

            Pill {
                required property approvalButtonView value

                widest: card.wide ? content.width / 2 : content.width
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
