import QtQuick
import Vellix.Pieces

// A spinner for what is mostly done at once: it is shown only where it lasts.
Item {
    id: late

    required property bool waits
    property real size: 12
    readonly property bool shown: waits && patience.over

    implicitWidth: size
    implicitHeight: size

    onWaitsChanged: patience.over = false

    Timer {
        id: patience

        property bool over: false

        running: late.waits
        interval: 400
        onTriggered: over = true
    }

    Spinner {
        visible: late.shown
        size: late.size
    }
}
