import QtQuick
import Vellix.Pieces

// A small capsule that opens a web or mail address through the platform; without one it is disabled.
Pressable {
    id: pill

    required property string title
    required property string icon
    property url url
    property real widest: Infinity

    enabled: LinkTarget.opens(url)
    label: title
    radius: height / 2
    implicitWidth: Math.min(Math.ceil(row.implicitWidth) + 20, widest)
    implicitHeight: 24
    Accessible.role: Accessible.Link

    onClicked: Qt.openUrlExternally(pill.url)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.hoverFill
    }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.hoverFill
        opacity: pill.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            id: mark

            anchors.verticalCenter: parent.verticalCenter
            size: 11.5
            name: pill.icon
            color: Theme.muted
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), pill.widest - 20 - mark.width - row.spacing)
            tellsWhole: true
            size: Theme.note
            color: Theme.muted
            text: pill.title
            Accessible.ignored: true
        }
    }
}
