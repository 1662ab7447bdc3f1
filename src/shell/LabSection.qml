import QtQuick
import Vellix.Pieces

// A titled group of marks on the developer's sheet, side by side as far as there is room.
Card {
    id: section

    default property alias marks: flow.data
    property alias gap: flow.spacing

    padding: Theme.gap16

    Flow {
        id: flow

        width: section.width - 2 * section.padding
        spacing: Theme.gap8
    }
}
