import QtQuick
import Vellix.Pieces

// Shows or hides one pane. `toggle` is a PaneToggleView.
Pressable {
    id: button

    required property var toggle

    readonly property color colour: toggle.shown ? Theme.fore[toggle.tone] : Theme.muted

    label: toggle.label
    help: toggle.help
    implicitWidth: row.implicitWidth
    implicitHeight: 26

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: toggle.shown
    Accessible.onToggleAction: button.click()

    Row {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            size: 13
            name: button.toggle.icon
            color: button.colour
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            color: button.colour
            text: button.toggle.label
            Accessible.ignored: true
        }
    }
}
