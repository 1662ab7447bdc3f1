import QtQuick
import Vellix.Pieces

// A button that looks like a link.
Pressable {
    id: button

    required property string text
    property string icon: ""
    property real size: Theme.body
    property int weight: Font.Medium
    property color color: Theme.strongAccent

    label: text
    implicitWidth: words.x + words.implicitWidth
    implicitHeight: words.implicitHeight + 4
    handRoom: 24

    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 5

        Symbol {
            visible: button.icon !== ""
            anchors.verticalCenter: parent.verticalCenter
            size: button.size - 0.5
            name: button.icon
            color: button.color
        }

        Label {
            id: words

            width: Math.min(implicitWidth, Math.max(0, button.width - x))
            anchors.verticalCenter: parent.verticalCenter
            size: button.size
            weight: button.weight
            color: button.color
            font.underline: button.hovered && button.enabled
            text: button.text
            Accessible.ignored: true
        }
    }
}
