pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Notes
import Vellix.Pieces

// Who is tagged in a note. `tags` is a list of TagChipViews; an empty one draws nothing.
FlowRow {
    id: chips

    required property var tags

    visible: tags.length > 0
    spacing: Theme.gap4

    Repeater {
        model: KeyedRows {
            rows: chips.tags
        }

        TagChip {
            required property tagChipView value

            chip: value
            room: chips.width
        }
    }
}
