import QtQuick
import Vellix.Board
import Vellix.Pieces

// How much of a ticket waits to be looked at.
Item {
    id: mark

    required property fileCountView count
    property bool bedded: false

    readonly property bool counts: count.text !== ""
    readonly property color colour: count.tone === "accent" ? Theme.accent
                                    : count.tone === "muted" ? Theme.muted
                                    : count.tone === "green" ? Theme.success
                                    : Theme.fore.red

    implicitWidth: counts ? badge.implicitWidth : 18
    implicitHeight: 18

    CountBadge {
        id: badge

        visible: mark.counts
        anchors.fill: parent
        text: mark.count.text
        help: mark.count.help
        colour: mark.colour
        filled: mark.count.tone === "red"
        bedded: mark.bedded
    }

    Symbol {
        visible: !mark.counts
        anchors.centerIn: parent
        size: 13
        name: mark.count.icon
        color: mark.colour

        Accessible.role: Accessible.Graphic
        Accessible.name: mark.count.help
        Accessible.ignored: mark.count.help === ""

        ToolTipArea {
            anchors.fill: parent
            text: mark.count.help
        }
    }
}
