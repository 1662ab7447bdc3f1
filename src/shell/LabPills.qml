pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The pills of the developer's sheet. `lab` is a MarkLabView.
Column {
    id: pills

    required property var lab

    spacing: Theme.gap16

    LabSection {
        width: parent.width
        title: "Statuses"

        Repeater {
            model: pills.lab.statuses

            StatusPill {
                required property var modelData
                pill: modelData
            }
        }
        Repeater {
            model: pills.lab.statuses

            StatusPill {
                required property var modelData
                pill: modelData
                small: true
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Severities"

        Repeater {
            model: pills.lab.severities

            SeverityPill {
                required property var modelData
                pill: modelData
            }
        }
        Repeater {
            model: pills.lab.severities

            SeverityPill {
                required property var modelData
                pill: modelData
                small: true
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Tracks"

        Repeater {
            model: pills.lab.tracks

            TrackPill {
                required property var modelData
                pill: modelData
            }
        }
        Repeater {
            model: pills.lab.tracks

            TrackPill {
                required property var modelData
                pill: modelData
                small: true
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Due dates and jobs"

        Repeater {
            model: [false, true]

            Flow {
                id: size

                required property bool modelData

                width: pills.width - 2 * Theme.gap16
                spacing: Theme.gap8

                Repeater {
                    model: pills.lab.samples

                    Pillbox {
                        required property var modelData
                        text: modelData.text
                        icon: modelData.icon
                        tone: modelData.tone
                        spinning: modelData.spinning
                        small: size.modelData
                    }
                }
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Tones"

        Repeater {
            model: pills.lab.tones

            Pillbox {
                required property string modelData
                text: modelData
                dashed: true
                tone: modelData
            }
        }
        Repeater {
            model: pills.lab.tones

            Pillbox {
                required property string modelData
                icon: "circle.fill"
                help: modelData
                tone: modelData
                small: true
            }
        }
    }
}
