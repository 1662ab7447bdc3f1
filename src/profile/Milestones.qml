pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Profile

// Targets, and how far the person is.
Card {
    id: card

    required property ProfileModel profile
    required property color colour
    required property color ink

    title: profile.words.milestones

    Grid {
        id: grid

        readonly property real each: (width - (columns - 1) * spacing) / columns

        width: parent.width
        columns: Math.max(1, Math.floor((width + spacing) / (210 + spacing)))
        spacing: 10

        Accessible.role: Accessible.List
        Accessible.name: card.title

        Repeater {
            model: card.profile.milestones

            MilestoneCell {
                width: grid.each
                colour: card.colour
                ink: card.ink
            }
        }
    }
}
