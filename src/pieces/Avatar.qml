pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pictures
import Vellix.Pieces

// A person's letter in a circle of the person's colour, and over it the photo once it is here.
Item {
    id: avatar

    required property avatarView who
    required property PictureSource pictures
    property real size: 20
    property bool ring: false
    property string help: who.help

    readonly property color ink: who.color === "" ? Theme.muted : who.color

    implicitWidth: size
    implicitHeight: size

    Accessible.role: Accessible.Graphic
    Accessible.name: who.help

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: Qt.alpha(avatar.ink, 0.18)
    }

    Label {
        visible: !(photos.count > 0 && (photos.itemAt(0) as RemoteImage).ready)
        anchors.centerIn: parent
        size: avatar.size * 0.45
        weight: Font.DemiBold
        font.capitalization: Font.AllUppercase
        color: avatar.ink
        text: avatar.who.letter
        Accessible.ignored: true
    }

    // Another photo is another picture: the letter shows until that one is here.
    Repeater {
        id: photos

        model: avatar.who.photo === "" ? [] : [avatar.who.photo]

        RemoteImage {
            required property string modelData

            anchors.fill: parent
            pictures: avatar.pictures
            key: modelData
            round: true
            placeholder: "transparent"
        }
    }

    Rectangle {
        visible: avatar.ring
        anchors.fill: parent
        anchors.margins: -3
        radius: width / 2
        color: "transparent"
        border.width: 2
        border.color: Theme.accent
    }

    ToolTipArea {
        anchors.fill: parent
        text: avatar.help
    }
}
