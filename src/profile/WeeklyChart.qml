pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Profile

// The reviews of each week as bars, the newest at the end, and below them what the one says that is
// pointed at or has the keyboard.
Item {
    id: chart

    required property ProfileModel profile
    required property color colour

    property WeekBar pointed: null
    readonly property WeekBar told: pointed ?? (bars.activeFocus ? bars.currentItem as WeekBar : null)

    implicitHeight: 150 + Theme.gap8 + caption.height

    ValueList {
        id: bars

        label: "Reviews per week"
        orientation: ListView.Horizontal
        width: parent.width
        height: chart.height - Theme.gap8 - caption.height
        // More weeks than there is room for begin with the newest.
        onCountChanged: newest.restart()
        onWidthChanged: newest.restart()
        model: chart.profile.weeks

        delegate: WeekBar {
            id: week

            width: Math.max(14, bars.width / bars.count)
            height: bars.height
            colour: chart.colour
            lit: chart.told === week
            onHoveredChanged: {
                if (hovered)
                    chart.pointed = week;
                else if (chart.pointed === week)
                    chart.pointed = null;
            }
            Keys.onPressed: event => bars.walk(event, week.index, week)
        }
    }

    // Once they are laid out.
    Timer {
        id: newest

        interval: 0
        onTriggered: {
            if (bars.activeFocus)
                bars.positionViewAtIndex(bars.currentIndex, ListView.Contain);
            else if (bars.overflows)
                bars.positionViewAtEnd();
        }
    }

    ScrollBar {
        view: bars
        vertical: false
    }

    Label {
        id: caption

        anchors.bottom: parent.bottom
        width: parent.width
        height: 16
        size: Theme.small
        color: Theme.muted
        text: chart.told?.caption ?? ""
        Accessible.ignored: true
    }
}
