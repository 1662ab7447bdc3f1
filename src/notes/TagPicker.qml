// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
import QtQuick
import Vellix.Notes
import Vellix.Pieces

// A menu that tags people, and beside it who is tagged.
FlowRow {
    id: picker

    required property Tags tags

    // The menu has the keyboard, or is about to give it back.
    readonly property bool open: menu.item ? menu.item.visible || menu.item.cameFrom !== null : false

    function close() {
        if (menu.item)
            menu.item.close();
    }

    spacing: Theme.gap4

    IconButton {
        id: at

        symbol: "at"
        help: "Tag people"
        size: 13
        checked: menu.item ? menu.item.visible : false
        expandable: true
        expanded: checked
        onClicked: {
            menu.active = true;
            menu.item.openAt(visualFocus);
        }

        Loader {
            id: menu

            active: false

            sourceComponent: Menu {
                parent: at
                y: at.height + Theme.gap4
                label: "Tag people"
                entries: picker.tags.entries
                onPicked: key => picker.tags.press(key)
            }
        }
    }

    Repeater {
        model: KeyedRows {
            rows: picker.tags.chips
        }

        TagChip {
            required property tagChipView value

            chip: value
            room: picker.width
        }
    }
}
