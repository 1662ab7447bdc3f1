import QtQuick
import Vellix.Pictures
import Vellix.Pieces

// One page of the strip: its picture, its name, and what waits on it. The arguments are those of a
// PageCellView. Most have no mark: what shows one is made where there is any.
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
    // As high with any marks as with none.
    implicitHeight: marks.y + marks.height + Theme.gap4

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

    Item {
        id: title

        // Each digit is an item; no name that fits has more characters than these.
        readonly property real wanted: figures.text === "" ? words.implicitWidth : figures.implicitWidth
        readonly property bool brief: figures.text === cell.name && figures.implicitWidth <= width

        x: paper.x
        y: marks.y
        width: marks.x - (marks.width > 0 ? marks.spacing : 0) - x
        height: marks.height

        Digits {
            id: figures

            visible: title.brief
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.tiny
            weight: cell.open ? Font.DemiBold : Font.Normal
            color: cell.open ? Theme.accent : Theme.muted
            text: cell.name.length <= 24 ? cell.name : ""
            Accessible.ignored: true
        }

        Label {
            id: words

            visible: !title.brief
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            size: Theme.tiny
            weight: figures.weight
            color: figures.color
            tellsWhole: true
            text: cell.name
            Accessible.ignored: true
        }
    }

    Row {
        id: marks

        // As much as three digits want, and a little of the ground beside them.
        readonly property real widest: 22

        // In line with the page, or out of the name's way as far as may be.
        x: Math.max(paper.x + paper.width - width,
                    Math.min(paper.x + title.wanted + spacing, parent.width - width - 3))
        // A page may be next to no height, and its notes have a badge.
        y: paper.y + Math.max(paper.height, 12) + Theme.gap4
        height: 16
        spacing: 3

        Loader {
            active: cell.waiting !== ""
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, marks.widest)

            sourceComponent: CountBadge {
                small: true
                colour: Theme.strongAccent
                text: cell.waiting
                Accessible.ignored: true
            }
        }

        Loader {
            active: cell.issues !== ""
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, marks.widest)

            sourceComponent: CountBadge {
                small: true
                filled: true
                colour: Theme.fore.red
                text: cell.issues
                Accessible.ignored: true
            }
        }
    }

    Loader {
        active: cell.notes !== ""
        visible: active
        anchors.right: paper.right
        anchors.rightMargin: -4
        y: paper.y - 3

        sourceComponent: CountBadge {
            small: true
            icon: "text.bubble.fill"
            colour: Theme.muted
            text: cell.notes
            Accessible.ignored: true

            // On a ground of its own, since it lies over the page.
            Rectangle {
                z: -1
                anchors.fill: parent
                anchors.margins: -1
                radius: height / 2
                color: Theme.raised
            }
        }
    }
}
