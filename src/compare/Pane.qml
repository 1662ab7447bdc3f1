// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
import QtQuick
import Vellix.Compare
import Vellix.Pieces

// One shown picture under its caption, fitted into the room and then zoomed.
Item {
    id: pane

    required property string img
    required property real aspect
    required property string label
    required property string tone
    required property string missing
    required property string missingWhy
    required property PictureSource pictures
    required property size room
    required property size picture

    readonly property real captionHeight: 22

    width: Math.max(room.width, img === "" ? 0 : picture.width)
    height: captionHeight + (img === "" ? room.height : picture.height)

    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Row {
        visible: pane.img !== ""
        x: Math.max(0, page.x)
        spacing: 6
        height: 16

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 7
            height: 7
            radius: 3.5
            color: Theme.fore[pane.tone]
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, pane.width - 14)
            size: Theme.note
            color: Theme.muted
            tellsWhole: true
            text: pane.label
        }
    }

    Item {
        id: page

        visible: pane.img !== ""
        // A page stands on whole pixels of the device, so that type stays sharp.
        x: Math.round((pane.width - width) / 2)
        y: pane.captionHeight
        width: pane.picture.width
        height: pane.picture.height

        Shadow {
            anchors.fill: parent
            radius: 2
            color: Theme.shadow
        }

        RemoteImage {
            anchors.fill: parent
            pictures: pane.pictures
            key: pane.img
            placeholder: Theme.paper

            Accessible.role: Accessible.Graphic
            Accessible.name: pane.label
        }
    }

    Loader {
        active: pane.img === ""
        width: pane.room.width
        height: pane.room.height

        sourceComponent: NoRef {
            what: pane.missing
            why: pane.missingWhy
        }
    }
}
