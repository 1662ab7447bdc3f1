import QtQuick
import Vellix.Pieces

// One of several choices below one another.
Pressable {
    id: row

    required property string text
    required property bool chosen

    label: text
    pressedScale: 1
    implicitHeight: 24

    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: chosen
    // What a radio button offers first.
    Accessible.onToggleAction: row.click()

    Rectangle {
        id: ring

        width: 14
        height: width
        anchors.verticalCenter: parent.verticalCenter
        radius: width / 2
        color: row.chosen ? Theme.accent : "transparent"
        border.width: row.chosen ? 0 : 1
        border.color: Qt.alpha(Theme.muted, 0.6)

        Rectangle {
            visible: row.chosen
            anchors.centerIn: parent
            width: 6
            height: width
            radius: width / 2
            color: Theme.onAccent
        }
    }

    Label {
        anchors.left: ring.right
        anchors.leftMargin: Theme.gap8
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        tellsWhole: true
        text: row.text
        Accessible.ignored: true
    }
}
