import QtQuick
import Vellix.Pieces

// One line of a Menu, or the rule between two groups of them.
Pressable {
    id: line

    // As Menu has them; the rule has no key.
    required property var entry

    readonly property bool rule: entry.key === ""
    readonly property bool takesFocus: !rule && enabled
    readonly property string told: entry.help ?? ""
    readonly property bool checks: entry.checked !== undefined
    // What stands behind the words takes of their room.
    readonly property real behind: (keys.text === "" ? 0 : keys.implicitWidth + 40) + (checks ? 36 : 0)

    label: entry.text
    help: !words.truncated || told.includes(entry.text) ? told : told ? entry.text + " · " + told : entry.text
    enabled: !rule && entry.enabled
    activeFocusOnTab: false
    pressedScale: 1
    opacity: 1
    implicitHeight: rule ? 11 : 28
    implicitWidth: Math.ceil(words.implicitWidth) + behind + 24

    Accessible.role: rule ? Accessible.Separator : Accessible.MenuItem
    Accessible.focusable: !rule
    Accessible.description: told || keys.text
    Accessible.checkable: checks
    Accessible.checked: entry.checked ?? false

    Hairline {
        visible: line.rule
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.gap8
        width: parent.width - 2 * x
    }

    Rectangle {
        anchors.fill: parent
        visible: line.takesFocus && line.activeFocus
        radius: Theme.radiusControl
        color: line.pressed ? Theme.selectedLine : Theme.selectedFill
    }

    Label {
        id: words

        x: 12
        width: Math.min(implicitWidth, line.width - line.behind - 24)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.row
        color: line.enabled ? Theme.text : Theme.faint
        opacity: line.enabled ? 1 : 0.6
        text: line.entry.text
        Accessible.ignored: true
    }

    Symbol {
        visible: line.entry.checked ?? false
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        size: 12
        name: "checkmark"
        color: Theme.strongAccent
    }

    Label {
        id: keys

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.note
        color: Theme.muted
        opacity: line.enabled ? 1 : 0.6
        text: line.entry.shortcut ?? ""
        Accessible.ignored: true
    }
}
