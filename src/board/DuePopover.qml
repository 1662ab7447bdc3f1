import QtQuick
import Vellix.Board
import Vellix.Pieces

// Moves the date a review is due, to earlier within its 48 hours. It closes before it asks for
// anything.
Popover {
    id: popover

    required property PlanModel plan

    readonly property dueButtonView due: plan.due
    readonly property bool late: due.late !== ""

    function toggle(byKey: bool) {
        if (opened)
            return close();
        plan.beginPick();
        openAt(byKey);
    }

    y: parent.height + Theme.gap4
    label: "Review due"
    first: urgent

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        implicitWidth: Math.max(288, picker.implicitWidth)
        implicitHeight: column.implicitHeight
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popover.label

        Column {
            id: column

            width: parent.width
            spacing: Theme.gap12

            Label {
                width: parent.width
                size: Theme.lead
                weight: Font.DemiBold
                text: "Review due"
                Accessible.role: Accessible.Heading
            }

            Item {
                width: parent.width
                height: words.height

                Symbol {
                    id: flame

                    y: 1
                    size: 14
                    name: "flame.fill"
                    color: Theme.strong[popover.due.urgent ? "orange" : "gray"]
                }

                Column {
                    id: words

                    anchors.left: flame.right
                    anchors.leftMargin: Theme.gap8
                    anchors.right: urgent.left
                    anchors.rightMargin: Theme.gap12

                    Label {
                        width: parent.width
                        weight: Font.Medium
                        text: "Urgent"
                        Accessible.ignored: true
                    }

                    Label {
                        width: parent.width
                        wrapMode: Text.Wrap
                        size: Theme.small
                        color: Theme.faint
                        text: "Due the same day, by 11:59 PM for the reviewer."
                    }
                }

                Switch {
                    id: urgent

                    anchors.right: parent.right
                    label: "Urgent"
                    checked: popover.due.urgent
                    onToggled: on => {
                        popover.close();
                        popover.plan.setUrgent(on);
                    }
                }
            }

            Hairline {
                width: parent.width
            }

            Column {
                visible: !popover.late
                width: parent.width
                spacing: Theme.gap4

                Label {
                    size: Theme.small
                    color: Theme.faint
                    text: "Due"
                }

                DatePicker {
                    id: picker

                    label: "Due"
                    shown: popover.plan.picker
                    onStepped: (part, by) => popover.plan.step(part, by)
                    onTyped: (part, digit) => popover.plan.type(part, digit)
                    onEntered: (part, number) => popover.plan.enter(part, number)
                    onEnded: popover.plan.leavePart()
                }
            }

            Label {
                visible: popover.late
                width: parent.width
                wrapMode: Text.Wrap
                color: Theme.strong.red
                text: popover.due.late
            }

            Column {
                width: parent.width
                spacing: Theme.gap4

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.small
                    color: Theme.faint
                    text: popover.due.explanation
                }

                Label {
                    visible: text !== ""
                    width: parent.width
                    size: Theme.small
                    color: Theme.faint
                    tellsWhole: true
                    text: popover.due.setBy
                }
            }

            Item {
                width: parent.width
                height: set.height

                TextButton {
                    anchors.verticalCenter: parent.verticalCenter
                    text: "Back to 48 hours"
                    onClicked: {
                        popover.close();
                        popover.plan.resetDue();
                    }
                }

                Pill {
                    id: set

                    anchors.right: parent.right
                    title: "Set"
                    icon: "checkmark"
                    color: Theme.accent
                    filled: true
                    // There is nothing left to set it to.
                    enabled: !popover.late
                    onClicked: {
                        popover.close();
                        popover.plan.setDue();
                    }
                }
            }
        }
    }
}
