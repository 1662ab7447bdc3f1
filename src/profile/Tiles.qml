import QtQuick
import Vellix.Pieces
import Vellix.Profile

// A person's reviewing in six figures.
Grid {
    id: tiles

    required property ProfileModel profile

    readonly property real each: (width - (columns - 1) * spacing) / columns

    columns: width >= 900 ? 6 : width >= 400 ? 3 : 2
    spacing: Theme.gap12

    Accessible.role: Accessible.List
    Accessible.name: "Figures"

    Repeater {
        model: tiles.profile.tiles

        FigureTile {
            width: tiles.each
        }
    }
}
