import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// Makes a long wait feel alive: another line every three seconds, and a light that runs over it.
Item {
    id: line

    property string who: "Claude"
    property int n: 0
    property real phase: -1

    readonly property string text: words.line(who, n)
    readonly property alias seen: sight.now

    implicitWidth: shimmer.implicitWidth
    implicitHeight: shimmer.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    onNChanged: fade.restart()

    WorkingWords {
        id: words
    }

    InSight {
        id: sight

        item: line
    }

    Timer {
        running: line.seen
        interval: 3000
        repeat: true
        onTriggered: line.n += 1
    }

    NumberAnimation {
        target: line
        property: "phase"
        running: line.seen && !Theme.reducedMotion
        from: -1
        to: 1
        duration: 1600
        loops: Animation.Infinite
        onStopped: line.phase = -1
    }

    NumberAnimation {
        id: fade

        target: shimmer
        property: "opacity"
        from: 0.4
        to: 1
        duration: Theme.standard
    }

    ShimmerText {
        id: shimmer

        width: Math.min(implicitWidth, line.width)
        height: implicitHeight
        text: line.text
        font.family: Theme.family
        font.pointSize: Theme.lead * Theme.pointsPerPixel
        font.weight: Font.Medium
        color: Theme.muted
        light: Theme.accent
        phase: line.phase
    }
}
