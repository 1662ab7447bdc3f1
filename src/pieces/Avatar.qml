import QtQuick
import Vellix.Pieces

// A person's letter in a circle of the person's colour. What is placed inside (a photo) fills the
// circle and hides the letter.
Item {
    id: avatar

    required property string letter
    property string email: ""
    property color color: Theme.muted
    property real size: 20
    property bool ring: false
    property string help: email
    default property alias photo: cover.data

    implicitWidth: size
    implicitHeight: size

    Accessible.role: Accessible.Graphic
    Accessible.name: help

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: Qt.alpha(avatar.color, 0.18)
    }

    Label {
        anchors.centerIn: parent
        size: avatar.size * 0.45
        weight: Font.DemiBold
        color: avatar.color
        text: avatar.letter
        Accessible.ignored: true
    }

    Item {
        id: cover

        anchors.fill: parent
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
