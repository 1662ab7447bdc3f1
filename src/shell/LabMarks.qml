pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The bare marks of the developer's sheet, its colours and its symbols.
// `symbols` the names of all symbols.
Column {
    id: marks

    required property markLabView lab
    required property var symbols

    spacing: Theme.gap16

    LabSection {
        width: parent.width
        title: "Marks"
        gap: Theme.gap16

        SorelMark { size: 48 }
        SorelMark { size: 48; working: true }
        SorelMark { size: 24 }
        SorelMark { size: 16 }
        HalfRound { width: 12; height: 24; color: Theme.accent }
        HalfRound { width: 12; height: 24; color: Theme.ink; mirrored: true }
        Spinner { size: 24 }
        Spinner { size: 18; color: Theme.accent }
        Spinner {}
        DashedRing { color: Theme.fore.purple }
        DashedRing { color: Theme.fore.blue; spinning: true }
        CountBadge { text: "7" }
        CountBadge { text: "12"; filled: true; colour: Theme.fore.red }
        Avatar {
            who: ({ letter: "R", color: "#7442e8", photo: "", help: "Renny" })
            pictures: null
            size: 24
        }
        Avatar {
            who: ({ letter: "J", color: "#1a84f0", photo: "", help: "Jorvas" })
            pictures: null
            size: 24
            ring: true
        }
        DottedLine { width: marks.width - 2 * Theme.gap16; color: Theme.muted }
        Hairline { width: marks.width - 2 * Theme.gap16 }
    }

    LabSection {
        width: parent.width
        title: "Colours"

        Repeater {
            model: marks.lab.colours

            Column {
                id: swatch

                required property string modelData

                width: 56
                spacing: Theme.gap4

                Rectangle {
                    width: 56
                    height: 28
                    radius: Theme.radiusControl
                    color: Theme[swatch.modelData]
                    border.width: 1
                    border.color: Theme.quietFill
                }
                Label {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    size: Theme.tiny
                    color: Theme.muted
                    text: swatch.modelData
                }
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Symbols"
        gap: Theme.gap12

        Repeater {
            model: marks.symbols

            Symbol {
                id: symbol

                required property string modelData

                name: modelData
                size: 16
                color: Theme.text
                Accessible.role: Accessible.Graphic
                Accessible.name: modelData

                ToolTipArea {
                    anchors.fill: parent
                    text: symbol.modelData
                }
            }
        }
    }
}
