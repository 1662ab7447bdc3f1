import QtQuick
import Vellix.Pieces

// A bare symbol that is pressed; its help is its name. `checked` lights it. While busy a spinner
// takes its place.
Pressable {
    id: button

    required property string symbol
    property real size: 15
    property bool checked: false
    property bool busy: false
    property color color: checked ? Theme.strongAccent : Theme.muted

    label: help
    idle: busy
    implicitWidth: Math.round(size) + 11
    implicitHeight: implicitWidth
    handRoom: 24
    pressedScale: 0.94

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: button.checked ? Theme.selectedFill : Theme.quietFill
        opacity: button.checked || button.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Symbol {
        visible: !button.busy
        anchors.centerIn: parent
        size: button.size
        name: button.symbol
        color: button.color
    }

    Spinner {
        visible: button.busy
        anchors.centerIn: parent
        size: button.size
        color: button.color
    }
}
