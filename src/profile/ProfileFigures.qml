import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile

// All that there is to tell of a person's reviewing, below one another.
Column {
    id: figures

    required property ProfileModel profile
    required property PictureSource pictures
    required property color colour
    required property color ink

    readonly property bool wide: width >= 620

    spacing: Theme.gap16

    Tiles {
        width: parent.width
        profile: figures.profile
    }

    Grid {
        id: charts

        // The cards beside each other are equally high.
        readonly property real highest: Math.max(weekly.implicitHeight, onTime.implicitHeight)

        width: parent.width
        columns: figures.wide ? 2 : 1
        spacing: figures.spacing

        Card {
            id: weekly

            width: figures.wide ? parent.width - onTime.width - charts.spacing : parent.width
            height: figures.wide ? charts.highest : implicitHeight
            title: "Reviews per week"

            WeeklyChart {
                width: parent.width
                // As low as the ring beside it.
                height: figures.wide ? Math.max(implicitHeight, Math.floor(onTime.implicitHeight - parent.y - weekly.padding))
                                     : implicitHeight
                profile: figures.profile
                colour: figures.colour
            }
        }

        Card {
            id: onTime

            width: figures.wide ? 300 : parent.width
            height: figures.wide ? charts.highest : implicitHeight
            title: "On time"

            OnTimeRing {
                width: parent.width
                ring: figures.profile.ring
                colour: figures.colour
            }
        }
    }

    Card {
        width: parent.width
        title: "Issues caught, by kind"

        IssueBars {
            width: parent.width
            profile: figures.profile
            colour: figures.colour
        }
    }

    OpenList {
        width: parent.width
        profile: figures.profile
        pictures: figures.pictures
    }

    MentionList {
        width: parent.width
        profile: figures.profile
        pictures: figures.pictures
    }

    Milestones {
        width: parent.width
        profile: figures.profile
        colour: figures.colour
        ink: figures.ink
    }
}
