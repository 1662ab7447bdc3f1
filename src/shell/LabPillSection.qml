pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// Pills of one kind on the developer's sheet, in full and below them small. `pill` makes one of
// `{ value, small }`.
Card {
    id: section

    required property var values
    required property Component pill

    Repeater {
        model: [false, true]

        Flow {
            id: line

            required property bool modelData

            width: section.width - 2 * section.padding
            spacing: Theme.gap8

            Repeater {
                model: section.values.map(value => ({ value: value, small: line.modelData }))
                delegate: section.pill
            }
        }
    }
}
