import QtQuick
import Vellix.Approval
import Vellix.Inspector
import Vellix.Pieces

// The ticket's story as a side of the panel.
Item {
    id: side

    required property HistoryModel history

    ScrollArea {
        id: scroll

        anchors.fill: parent
        label: "History"
        contentHeight: list.implicitHeight + Theme.gap12 + Theme.gap24

        HistoryList {
            id: list

            x: Theme.gap16
            y: Theme.gap12
            width: scroll.width - 2 * x
            history: side.history
        }
    }

    ScrollBar {
        view: scroll
    }
}
