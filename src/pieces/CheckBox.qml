import QtQuick
import Vellix.Pieces

// A box with a text. It shows `checked` and asks for the other value; the owner decides.
Pressable {
    id: box

    required property string text
    property bool checked: false
    property real size: Theme.small

    signal toggled(bool checked)

    label: text
    pressedScale: 1
    implicitWidth: words.x + words.implicitWidth
    implicitHeight: Math.max(24, words.implicitHeight)

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: box.click()

    onClicked: toggled(!checked)

    Rectangle {
        id: square

        width: 14
        height: 14
        anchors.verticalCenter: parent.verticalCenter
        radius: 4
        color: box.checked ? Theme.accent : "transparent"
        border.width: box.checked ? 0 : 1
        border.color: Qt.alpha(Theme.muted, 0.6)

        Behavior on color {
            ColorAnimation { duration: Theme.hover }
        }

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: box.checked ? Theme.onAccent : Theme.text
            opacity: box.pressed ? 0.2 : box.hovered ? 0.12 : 0

            Behavior on opacity {
                NumberAnimation { duration: Theme.hover }
            }
        }

        Symbol {
            visible: box.checked
            anchors.centerIn: parent
            size: 9.5
            name: "checkmark"
            color: Theme.onAccent
        }
    }

    Label {
        id: words

        x: square.width + 7
        width: Math.min(implicitWidth, box.width - x)
        anchors.verticalCenter: parent.verticalCenter
        size: box.size
        color: Theme.muted
        text: box.text
        Accessible.ignored: true
    }
}
