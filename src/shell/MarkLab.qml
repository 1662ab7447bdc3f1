import QtQuick
import Vellix.Pieces
import Vellix.Shell

// A developer's sheet: every mark in its states.
Rectangle {
    id: sheet

    required property markLabView lab
    required property var symbols

    readonly property int columns: Math.max(1, Math.min(3, Math.floor(width / 420)))
    readonly property real columnWidth: (view.width - (columns + 1) * Theme.gap24) / columns

    color: Theme.window

    Flickable {
        id: view

        anchors.fill: parent
        contentHeight: flow.height + 2 * Theme.gap24
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Flow {
            id: flow

            x: Theme.gap24
            y: Theme.gap24
            width: parent.width - 2 * Theme.gap24
            spacing: Theme.gap24

            LabPills {
                width: sheet.columnWidth
                lab: sheet.lab
            }
            LabButtons {
                width: sheet.columnWidth
            }
            LabMarks {
                width: sheet.columnWidth
                lab: sheet.lab
                symbols: sheet.symbols
            }
        }
    }

    ScrollBar {
        view: view
    }
}
