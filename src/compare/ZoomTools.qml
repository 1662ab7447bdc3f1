import QtQuick
import Vellix.Compare
import Vellix.Pieces

// Zooms by a step, by hand, and back to where the page fits.
Row {
    id: tools

    required property CompareModel compare
    // Of the slider.
    required property real reach

    readonly property canvasBarView view: compare.bar

    HandOver {
        id: over
    }

    IconButton {
        id: less

        anchors.verticalCenter: parent.verticalCenter
        symbol: "minus.magnifyingglass"
        onEnabledChanged: over.hand(less, more)
        help: Theme.keys("Zoom out (⌘−)")
        enabled: tools.view.canZoomOut
        onClicked: tools.compare.zoomOut()
    }

    Slider {
        anchors.verticalCenter: parent.verticalCenter
        width: tools.reach
        label: help
        help: Theme.keys("Zoom (⌘+ and ⌘−, ⌘0 to fit, or pinch)")
        from: 1
        to: 4
        level: tools.view.zoom
        onMoved: level => tools.compare.zoomTo(level)
    }

    IconButton {
        id: more

        anchors.verticalCenter: parent.verticalCenter
        symbol: "plus.magnifyingglass"
        onEnabledChanged: over.hand(more, less)
        help: Theme.keys("Zoom in (⌘+)")
        enabled: tools.view.canZoomIn
        onClicked: tools.compare.zoomIn()
    }

    Pressable {
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 38
        implicitHeight: 26
        label: tools.view.percent
        help: Theme.keys("Fit (⌘0)")
        onClicked: tools.compare.fit()

        Digits {
            anchors.centerIn: parent
            size: Theme.body
            text: tools.view.percent
            Accessible.ignored: true
        }
    }
}
