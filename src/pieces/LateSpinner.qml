import QtQuick
import Vellix.Pieces

// A spinner for what is mostly done at once: it is shown only where it lasts.
Loader {
    id: late

    required property bool waits
    property real size: 12
    property int after: 400  // milliseconds
    readonly property bool shown: waits && patience.over

    width: size
    height: size
    active: shown

    onWaitsChanged: patience.over = false

    Timer {
        id: patience

        property bool over: false

        running: late.waits
        interval: late.after
        onTriggered: over = true
    }

    sourceComponent: Spinner {
        size: late.size
    }
}
