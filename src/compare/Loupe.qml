pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pictures
import Vellix.Pieces

// The strip over the bottom of the stage that shows the selected finding's spot on every page. Its
// owner lays a Ground under it.
Item {
    id: loupe

    required property CompareModel compare
    required property PictureSource pictures
    // Esc is this strip's only while nothing above it wants it.
    required property bool takesEscape

    readonly property loupeView view: compare.loupe
    readonly property bool shown: view.open
    readonly property size place: compare.cropPlace(strip.width, view.crops.length)
    property real open: shown ? 1 : 0

    onShownChanged: {
        if (shown)
            before.note(Window.activeFocusItem);
        else if (close.activeFocus)
            before.giveBack(Qt.TabFocusReason);
    }

    visible: shown || open > 0
    enabled: shown
    implicitHeight: head.height + strip.height + 3 * Theme.gap12
    opacity: open
    transform: Translate { y: (1 - loupe.open) * loupe.height }

    Accessible.role: Accessible.Grouping
    Accessible.name: view.title

    Behavior on open {
        Glide {}
    }

    CameFrom {
        id: before
    }

    Rectangle {
        id: card

        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.card

        Shadow {
            anchors.fill: parent
            z: -1
            radius: Theme.radiusCard
            color: Theme.shadow
        }
    }

    Item {
        id: head

        x: Theme.gap16
        y: Theme.gap12
        width: parent.width - 2 * x
        height: 24

        Label {
            id: caption

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width * 0.4)
            size: Theme.small
            color: Theme.muted
            text: loupe.view.caption
        }

        Label {
            anchors.left: caption.right
            anchors.leftMargin: Theme.gap12
            anchors.right: close.left
            anchors.rightMargin: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.row
            weight: Font.DemiBold
            tellsWhole: true
            text: loupe.view.title
        }

        IconButton {
            id: close

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            symbol: "xmark.circle.fill"
            help: "Close (Esc)"
            onClicked: loupe.compare.closeLoupe()
        }
    }

    Row {
        id: strip

        x: Theme.gap16
        anchors.top: head.bottom
        anchors.topMargin: Theme.gap12
        width: parent.width - 2 * x
        height: loupe.place.height
        spacing: 12

        Repeater {
            model: KeyedRows {
                rows: loupe.view.crops
            }

            Crop {
                required property cropView value

                width: loupe.place.width
                height: loupe.place.height
                compare: loupe.compare
                pictures: loupe.pictures
                crop: value
                ground: card.color
            }
        }
    }

    Shortcut {
        sequence: "Esc"
        enabled: loupe.visible && loupe.shown && loupe.takesEscape
        onActivated: loupe.compare.closeLoupe()
    }
}
