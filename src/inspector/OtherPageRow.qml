import QtQuick
import Vellix.Pieces

// A page with findings that wait: pressing it goes there.
Pressable {
    id: row

    required property string name
    required property string count

    label: name
    implicitHeight: 30
    radius: Theme.radiusControl

    Accessible.description: count

    Rectangle {
        anchors.fill: parent
        radius: row.radius
        color: Theme.hoverFill
        opacity: row.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Label {
        x: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        text: row.name
        Accessible.ignored: true
    }

    Label {
        anchors.right: chevron.left
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.small
        color: Theme.faint
        text: row.count
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: 10
        name: "chevron.right"
        color: Theme.faint
    }
}
