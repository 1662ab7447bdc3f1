import QtQuick
import Vellix.Pieces

// Counts down to a report. The text is told by the owner, who is asked for it once a second while
// the pill can be seen.
Pillbox {
    id: pill

    signal ticked()

    readonly property bool seen: visible && Window.visibility !== Window.Hidden
                                 && Window.visibility !== Window.Minimized

    tone: "blue"
    spinning: true

    Timer {
        running: pill.seen
        interval: 1000
        repeat: true
        onTriggered: pill.ticked()
    }
}
