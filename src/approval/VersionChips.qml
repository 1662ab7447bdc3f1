pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// The versions of the ticket, where there are several.
FlowRow {
    id: chips

    required property ApprovalModel approval

    visible: list.count > 0
    spacing: Theme.gap4

    Accessible.role: Accessible.Grouping
    Accessible.name: "Versions"

    Repeater {
        id: list

        model: KeyedRows {
            by: "n"
            rows: chips.approval.versions
        }

        VersionChip {
            required property versionChipView value

            chip: value
            onClicked: chips.approval.showVersion(value.n)
        }
    }
}
