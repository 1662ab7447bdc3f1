pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pictures
import Vellix.Pieces

// One cut-out of a page, enlarged: the whole picture laid out larger and clipped.
Item {
    id: cut

    required property CompareModel compare
    required property PictureSource pictures
    required property cropView crop
    required property color ground

    readonly property cropLayout lay: compare.cropLayout(crop.part, crop.boxes, crop.aspect, Qt.size(width, height))
    readonly property color colour: Theme.onPaper[crop.colour]

    Item {
        id: frame

        x: cut.lay.frame.x
        y: cut.lay.frame.y
        width: cut.lay.frame.width
        height: cut.lay.frame.height
        clip: true

        RemoteImage {
            id: picture

            x: cut.lay.page.x
            y: cut.lay.page.y
            width: cut.lay.page.width
            height: cut.lay.page.height
            pictures: cut.pictures
            key: cut.crop.img
            placeholder: missing ? Theme.well : Theme.paper

            Accessible.role: Accessible.Graphic
            Accessible.name: cut.crop.label
            Accessible.ignored: !ready
        }

        LateSpinner {
            anchors.centerIn: parent
            waits: cut.crop.img !== "" && !picture.ready && !picture.missing
        }

        Repeater {
            model: picture.missing ? 1 : 0

            MissingPicture {
                anchors.fill: frame
            }
        }

        Repeater {
            model: picture.ready ? cut.lay.marks.length : 0

            MarkFrame {
                required property int index
                readonly property rect place: cut.lay.marks[index] ?? Qt.rect(0, 0, 0, 0)

                x: place.x
                y: place.y
                width: place.width
                height: place.height
                line: 2.4
                color: cut.colour
            }
        }
    }

    // Round corners: what is clipped has none.
    Rectangle {
        anchors.fill: frame
        anchors.margins: -4
        radius: 10
        color: "transparent"
        border.width: 4
        border.color: cut.ground
    }

    Label {
        y: frame.y + frame.height + 4
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        size: 9.5
        font.letterSpacing: 0.6
        color: cut.crop.colour === "accent" ? Theme.strongAccent : Theme.strong.blue
        tellsWhole: true
        text: cut.crop.label
    }
}
