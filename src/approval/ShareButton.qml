pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// Tells whether the ticket has a link for colleagues; its popover changes that.
DropButton {
    id: button

    required property ShareModel share

    label: share.button.label
    open: (popover.object as SharePopover)?.visible ?? false

    onClicked: (popover.made() as SharePopover).toggle(visualFocus)

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        size: 12
        name: button.share.button.icon
        color: Theme.muted
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        weight: Font.Medium
        text: button.share.button.label
        Accessible.ignored: true
    }

    OnDemand {
        id: popover

        SharePopover {
            parent: button
            share: button.share
        }
    }
}
