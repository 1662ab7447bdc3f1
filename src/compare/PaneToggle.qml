import QtQuick
import Vellix.Pieces

// Shows or hides one pane.
Pressable {
    id: button

    required property string key
    // What it says on another page may be wider: it holds that room.
    required property string widest
    required property string tone
    required property string icon
    required property bool shown
    required help

    readonly property color colour: shown ? Theme.fore[tone] : Theme.muted

    implicitWidth: words.x + Math.ceil(Math.max(words.implicitWidth, room.implicitWidth))
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
        id: room

        visible: false
        size: words.size
        text: button.widest
    }

    Label {
        id: words

        x: mark.width + 5
        width: Math.min(Math.ceil(implicitWidth), button.width - x)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        tellsWhole: true
        color: button.colour
        text: button.label
        Accessible.ignored: true
    }
}
