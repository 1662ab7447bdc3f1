pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Notes
import Vellix.Pieces

// A menu that tags people, and beside it who is tagged.
FlowRow {
    id: picker

    required property Tags tags

    readonly property Menu menu: place.object as Menu
    // The menu has the keyboard, or is about to give it back.
    readonly property bool open: menu ? menu.visible || menu.cameFrom.item !== null : false

    function close() {
        menu?.close();
    }

    spacing: Theme.gap4

    IconButton {
        id: at

        symbol: "at"
        help: "Tag people"
        size: 13
        // As high as what posts beside it.
        width: 26
        height: 26
        checked: picker.menu?.visible ?? false
        expandable: true
        expanded: checked
        onClicked: (place.made() as Menu).openAt(visualFocus)

        OnDemand {
            id: place

            Menu {
                parent: at
                y: at.height + Theme.gap4
                goesAlong: true
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
