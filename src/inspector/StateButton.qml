import QtQuick
import Vellix.Pieces

// One of the two decisions about a finding.
Pressable {
    id: button

    required property string title
    required property string icon
    required property bool on
    required property color color
    // What is held of the finding, whichever button says it.
    required property string decision

    label: title
    says: decision
    implicitWidth: row.implicitWidth + 18
    implicitHeight: 26

    Accessible.checkable: true
    Accessible.checked: on

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: button.on ? Qt.alpha(button.color, 0.11) : button.hovered ? Theme.hoverFill
                                                                        : "transparent"
        border.width: 1
        border.color: button.on ? "transparent" : Theme.quietFill

        Behavior on color {
            ColorAnimation { duration: Theme.hover }
        }
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            size: 11.5
            name: button.icon
            color: button.on ? button.color : Theme.muted
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.note
            weight: button.on ? Font.DemiBold : Font.Medium
            color: button.on ? button.color : Theme.muted
            text: button.title
            Accessible.ignored: true
        }
    }
}
