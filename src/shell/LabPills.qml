pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The pills of the developer's sheet.
Column {
    id: pills

    required property markLabView lab

    spacing: Theme.gap16

    LabPillSection {
        width: parent.width
        title: "Statuses"
        values: pills.lab.statuses
        pill: StatusPill {
            required property var modelData

            pill: modelData.value
            small: modelData.small
        }
    }

    LabPillSection {
        width: parent.width
        title: "Severities"
        values: pills.lab.severities
        pill: SeverityPill {
            required property var modelData

            pill: modelData.value
            small: modelData.small
        }
    }

    LabPillSection {
        width: parent.width
        title: "Tracks"
        values: pills.lab.tracks
        pill: TrackPill {
            required property var modelData

            pill: modelData.value
            small: modelData.small
        }
    }

    LabPillSection {
        width: parent.width
        title: "Due dates and jobs"
        values: pills.lab.samples
        pill: Pillbox {
            required property var modelData

            text: modelData.value.text
            icon: modelData.value.icon
            tone: modelData.value.tone
            spinning: modelData.value.spinning
            small: modelData.small
        }
    }

    LabPillSection {
        width: parent.width
        title: "Tones"
        values: pills.lab.tones
        pill: Pillbox {
            required property var modelData

            text: modelData.small ? "" : modelData.value
            icon: modelData.small ? "circle.fill" : ""
            help: modelData.value
            dashed: !modelData.small
            tone: modelData.value
            small: modelData.small
        }
    }
}
