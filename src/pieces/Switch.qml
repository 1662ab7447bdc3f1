import QtQuick
import Vellix.Pieces

// A switch alone; `label` is its name. It shows `checked` and asks for the other value.
Pressable {
    id: toggle

    property bool checked: false

    signal toggled(bool checked)

    radius: height / 2
    pressedScale: 1
    implicitWidth: 32
    implicitHeight: 19
    handRoom: 24

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: toggle.click()

    onClicked: toggled(!checked)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: toggle.checked ? Theme.accent : Qt.alpha(Theme.muted, 0.28)

        Behavior on color {
            ColorAnimation { duration: Theme.hover }
        }

        Rectangle {
            anchors.fill: parent
            radius: height / 2
            color: toggle.checked ? Theme.onAccent : Theme.text
            opacity: toggle.pressed ? 0.2 : toggle.hovered ? 0.12 : 0

            Behavior on opacity {
                NumberAnimation { duration: Theme.hover }
            }
        }

        Rectangle {
            x: toggle.checked ? parent.width - width - 2 : 2
            y: 2
            width: parent.height - 4
            height: width
            radius: width / 2
            color: Theme.onAccent

            Behavior on x {
                NumberAnimation { duration: Theme.hover }
            }
        }
    }
}
