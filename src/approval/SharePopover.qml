import QtQuick
import Vellix.Approval
import Vellix.Pieces

// The link that opens the ticket for colleagues: on or off, what it allows, and to be handed on. It
// stays open and follows the board.
Popover {
    id: popover

    required property ShareModel share

    readonly property sharePopoverView view: share.popover
    readonly property bool here: view.here

    function toggle(byKey: bool) {
        if (opened)
            return close();
        share.forget();
        openAt(byKey);
    }

    onHereChanged: if (!here) close()
    onAboutToHide: share.forget()

    y: parent.height + Theme.gap4
    label: "Share link"
    first: knob

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        implicitWidth: 320
        implicitHeight: column.implicitHeight
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popover.label

        Column {
            id: column

            width: parent.width
            spacing: Theme.gap12

            Item {
                width: parent.width
                height: words.height

                Column {
                    id: words

                    anchors.left: parent.left
                    anchors.right: knob.left
                    anchors.rightMargin: Theme.gap12
                    spacing: 2

                    Label {
                        width: parent.width
                        size: Theme.lead
                        weight: Font.DemiBold
                        text: "Share link"
                        Accessible.ignored: true
                    }

                    Label {
                        id: who

                        width: parent.width
                        wrapMode: Text.Wrap
                        size: Theme.note
                        color: Theme.muted
                        text: "Anyone at Tessarine with the link can open this ticket. They sign in with Google."
                        Accessible.ignored: true
                    }
                }

                Switch {
                    id: knob

                    anchors.right: parent.right
                    label: "Share link"
                    help: who.text
                    checked: popover.view.on
                    enabled: !popover.view.busy
                    // Who turns it on does not mean to turn off what somebody else has turned on.
                    says: popover.view.on + popover.view.url
                    onToggled: on => popover.share.switchTo(on)
                }
            }

            Segmented {
                width: parent.width
                stretched: true
                enabled: !popover.view.busy
                label: "What it allows"
                options: popover.view.levels
                current: popover.view.access
                onPicked: key => popover.share.choose(key)
            }

            Label {
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.note
                color: Theme.muted
                text: popover.view.allows
            }

            Column {
                visible: popover.view.url !== ""
                width: parent.width
                spacing: Theme.gap8

                Hairline {
                    width: parent.width
                }

                TextButton {
                    text: "Copy link"
                    icon: "doc.on.doc"
                    onClicked: popover.share.copy()
                }

                TextButton {
                    text: "Copy for Notion"
                    icon: "square.on.square"
                    help: popover.view.notionHelp
                    onClicked: popover.share.copyForNotion()
                }

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.small
                    color: Theme.faint
                    text: popover.view.notionHelp
                    Accessible.ignored: true
                }

                TextButton {
                    text: "Open in browser"
                    onClicked: popover.share.openInBrowser()
                }

                TextButton {
                    text: popover.view.renew
                    color: popover.view.warning !== "" ? Theme.strong.red : Theme.strongAccent
                    enabled: !popover.view.busy
                    // The second press is for who has read that it is one.
                    says: text + popover.view.url
                    onClicked: popover.share.renew()
                }

                Label {
                    visible: text !== ""
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.small
                    color: Theme.strong.red
                    text: popover.view.warning
                    Accessible.role: Accessible.AlertMessage
                }
            }

            Hairline {
                width: parent.width
            }

            Label {
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.small
                color: Theme.faint
                text: "Approvers can always leave notes and approve, whatever the link allows."
            }
        }
    }
}
