pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pictures
import Vellix.Pieces

// One page of the strip: its picture, its name, and what waits on it. The arguments are those of a
// PageCellView.
Pressable {
    id: cell

    required property string name
    required property string img
    required property real thumbHeight
    required property bool open
    required property string waiting
    required property string issues
    required property string notes
    required property string spoken
    required property PictureSource pictures
    // While the strip rushes past, a picture is not worth asking for.
    property bool passing: false

    label: name
    help: spoken
    radius: Theme.radiusRow
    // A line of marks has its room before it is laid out.
    implicitHeight: marks.y + Math.max(marks.height, 16) + Theme.gap4

    Accessible.role: Accessible.ListItem
    Accessible.description: spoken
    Accessible.selectable: true
    Accessible.selected: open

    Rectangle {
        anchors.fill: parent
        radius: cell.radius
        color: Theme.hoverFill
        opacity: cell.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: cell.radius
        color: Theme.selectedFill
        border.width: 1
        border.color: Theme.selectedLine
        opacity: cell.open ? 1 : 0

        Behavior on opacity {
            Glide {}
        }
    }

    Rectangle {
        id: paper

        x: (parent.width - width) / 2
        y: 6
        width: 58
        height: cell.thumbHeight
        color: picture.placeholder

        RemoteImage {
            id: picture

            anchors.fill: parent
            pictures: cell.pictures
            key: cell.img
            waits: cell.passing
            placeholder: missing ? Theme.well : Theme.paper
        }

        Repeater {
            model: picture.missing ? 1 : 0

            MissingPicture {
                anchors.fill: paper
                size: 18
            }
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: -1
            color: "transparent"
            border.width: 1
            border.color: Theme.quietFill
        }
    }

    FlowRow {
        id: marks

        x: 6
        y: paper.y + paper.height + Theme.gap4
        width: parent.width - 2 * x
        height: implicitHeight
        spacing: 3

        Item {
            // Each digit is an item; no name that fits has more characters than these.
            readonly property bool brief: figures.text === cell.name
                                          && figures.implicitWidth <= marks.width

            width: brief ? figures.implicitWidth : Math.min(words.implicitWidth, marks.width)
            height: words.implicitHeight

            Digits {
                id: figures

                visible: parent.brief
                size: Theme.tiny
                weight: cell.open ? Font.DemiBold : Font.Normal
                color: cell.open ? Theme.accent : Theme.muted
                text: cell.name.length <= 24 ? cell.name : ""
                Accessible.ignored: true
            }

            Label {
                id: words

                visible: !parent.brief
                width: parent.width
                size: Theme.tiny
                weight: figures.weight
                color: figures.color
                tellsWhole: true
                text: cell.name
                Accessible.ignored: true
            }
        }

        CountBadge {
            visible: text !== ""
            small: true
            colour: Theme.strongAccent
            text: cell.waiting
            Accessible.ignored: true
        }

        CountBadge {
            visible: text !== ""
            small: true
            filled: true
            colour: Theme.fore.red
            text: cell.issues
            Accessible.ignored: true
        }

        CountBadge {
            visible: text !== ""
            small: true
            icon: "text.bubble.fill"
            colour: Theme.muted
            text: cell.notes
            Accessible.ignored: true
        }
    }
}
