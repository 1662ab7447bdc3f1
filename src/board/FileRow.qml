import QtQuick
import Vellix.Approval
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// One ticket.
Pressable {
    id: row

    required property fileRowView ticket
    required property PictureSource pictures

    signal chosen(bool command)

    label: ticket.heading
    radius: Theme.radiusRow
    pressedScale: 0.985
    implicitHeight: Math.max(54, words.implicitHeight + 16)

    Accessible.role: Accessible.ListItem
    Accessible.name: ticket.heading
    Accessible.description: ticket.spoken
    Accessible.selectable: true
    Accessible.selected: ticket.selected

    onClicked: modifiers => chosen((modifiers & Qt.ControlModifier) !== 0)

    Rectangle {
        anchors.fill: parent
        radius: row.radius
        color: row.ticket.selected ? Theme.selectedFill : Theme.hoverFill
        border.width: row.ticket.selected ? 1 : 0
        border.color: Theme.selectedLine
        opacity: row.ticket.selected || row.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Rectangle {
        id: thumb

        x: Theme.gap8
        y: Theme.gap8
        width: 30
        height: 38
        radius: 2
        color: Theme.quietFill

        RemoteImage {
            id: picture

            anchors.fill: parent
            pictures: row.pictures
            key: row.ticket.thumb
            fill: true
            placeholder: Theme.quietFill
        }

        Repeater {
            model: picture.missing ? 1 : 0

            MissingPicture {
                anchors.fill: thumb
                size: 14
            }
        }

        Rectangle {
            anchors.fill: parent
            color: "transparent"
            radius: 2
            border.width: 1
            border.color: Theme.hoverFill
        }
    }

    Column {
        id: words

        x: thumb.x + thumb.width + 10
        y: 7
        width: end.x - x - Theme.gap8
        spacing: 2

        Label {
            width: parent.width
            size: Theme.row
            weight: Font.DemiBold
            tellsWhole: true
            text: row.ticket.heading
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            size: Theme.small
            color: Theme.faint
            tellsWhole: true
            text: row.ticket.subline
        }

        Item {
            visible: due.active || approval.active
            width: parent.width
            height: 24

            Loader {
                id: due

                width: parent.width - (approval.active ? approval.width + Theme.gap4 : 0)
                height: parent.height
                active: row.ticket.due !== undefined

                sourceComponent: DueChip {
                    compact: true
                    bedded: row.ticket.selected
                    due: row.ticket.due
                }
            }

            Loader {
                id: approval

                x: due.item ? Math.ceil((due.item as DueChip).shown) + Theme.gap4 : 0
                anchors.bottom: parent.bottom
                active: row.ticket.approval !== undefined

                sourceComponent: ApprovalPill {
                    small: true
                    bedded: row.ticket.selected
                    pill: row.ticket.approval
                    width: Math.min(implicitWidth, words.width)
                }
            }
        }
    }

    Item {
        id: end

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        y: 7
        width: Math.max(24, waiting.implicitWidth)
        height: parent.height - 2 * y

        FileCount {
            id: waiting

            anchors.right: parent.right
            count: row.ticket.count
            bedded: row.ticket.selected
        }

        Loader {
            anchors.right: parent.right
            anchors.rightMargin: 1
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 3
            active: row.ticket.assignee !== undefined

            sourceComponent: Avatar {
                who: row.ticket.assignee
                pictures: row.pictures
                size: 16
            }
        }
    }
}
