import QtQuick
import Vellix.Board
import Vellix.Pieces

// When the review is due; its popover moves that.
DropButton {
    id: button

    required property PlanModel plan

    readonly property dueButtonView due: plan.due

    label: due.text
    help: "When the review is due"
    enabled: !due.busy
    open: (popover.object as DuePopover)?.visible ?? false
    padding: due.chip ? 4 : 12

    onClicked: (popover.made() as DuePopover).toggle(visualFocus)

    Loader {
        visible: active
        anchors.verticalCenter: parent.verticalCenter
        active: button.due.chip !== undefined

        sourceComponent: DueChip {
            due: button.due.chip
            Accessible.ignored: true
        }
    }

    Label {
        visible: button.due.chip === undefined
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        weight: Font.Medium
        text: button.due.text
        Accessible.ignored: true
    }

    OnDemand {
        id: popover

        DuePopover {
            parent: button
            plan: button.plan
        }
    }
}
