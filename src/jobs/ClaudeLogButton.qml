pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// The creature, awake while the worker is; its popover tells what it does and did.
Pressable {
    id: button

    required property ClaudeLogModel log

    readonly property bool open: (popover.object as ClaudeLogPopover)?.visible ?? false

    help: "What Claude did on the Mac mini"
    label: help
    radius: Theme.radiusRow
    implicitWidth: 44
    implicitHeight: 36
    expandable: true
    expanded: open

    onClicked: (popover.made() as ClaudeLogPopover).toggle(visualFocus)

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: button.open ? Theme.selectedFill : Theme.quietFill
        opacity: button.open || button.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    ClaudeCritter {
        anchors.centerIn: parent
        size: 16
        busy: button.log.busy
    }

    OnDemand {
        id: popover

        ClaudeLogPopover {
            parent: button
            log: button.log
        }
    }
}
