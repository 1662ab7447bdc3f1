import QtQuick
import Vellix.Pieces

// Shows or hides one pane.
Pressable {
    id: button

    required property string key
    required property string tone
    required property string icon
    required property bool shown
    required help
    property real widest: 1000

    readonly property color colour: shown ? Theme.fore[tone] : Theme.muted

    implicitWidth: words.x + words.width
    implicitHeight: 26

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: shown
    Accessible.onToggleAction: button.click()

    Symbol {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        size: 13
        name: button.icon
        color: button.colour
    }

    Label {
        id: words

        x: mark.width + 5
        width: Math.min(Math.ceil(implicitWidth), button.widest - x)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        tellsWhole: true
        color: button.colour
        text: button.label
        Accessible.ignored: true
    }
}
