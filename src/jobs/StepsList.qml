pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What the worker has done of a job so far, and what it is at.
Column {
    id: steps

    required property stepsListView list

    spacing: 5

    Accessible.role: Accessible.List
    Accessible.name: "Steps"

    Label {
        visible: text !== ""
        x: 18  // where the steps' texts begin
        width: steps.width - x
        size: Theme.note
        color: Theme.muted
        text: steps.list.earlier
    }

    Repeater {
        model: KeyedRows {
            rows: steps.list.rows
        }

        MarkedLine {
            required property stepView value

            width: steps.width
            text: value.text
            icon: value.icon
            ink: Theme.strong[value.tone] ?? Theme.muted
            spins: value.live
            size: Theme.note
            color: value.live ? Theme.text : Theme.muted
        }
    }
}
