import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// Who reviews the ticket; its popover changes that, or moves the ticket to the other queue.
DropButton {
    id: button

    required property PlanModel plan
    required property PictureSource pictures

    readonly property assignButtonView reviewer: plan.reviewer

    label: reviewer.text
    help: "Who reviews this"
    enabled: !reviewer.busy
    open: (popover.object as AssignPopover)?.visible ?? false
    padding: reviewer.avatar ? 8 : 12

    onClicked: (popover.made() as AssignPopover).toggle(visualFocus)

    Loader {
        visible: active
        anchors.verticalCenter: parent.verticalCenter
        active: button.reviewer.avatar !== undefined

        sourceComponent: Avatar {
            who: button.reviewer.avatar
            pictures: button.pictures
            size: 18
            Accessible.ignored: true
        }
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(implicitWidth), 160)
        size: Theme.body
        weight: Font.Medium
        text: button.reviewer.text
        Accessible.ignored: true
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        size: 10
        name: "chevron.down"
        color: Theme.muted
    }

    OnDemand {
        id: popover

        AssignPopover {
            parent: button
            plan: button.plan
            pictures: button.pictures
        }
    }
}
