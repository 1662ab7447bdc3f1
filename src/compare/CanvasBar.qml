pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The strip under the stage: pages, panes, zoom and the notes panel. It breaks into rows when it
// is narrow.
Rectangle {
    id: bar

    required property CompareModel compare

    readonly property var view: compare.bar
    readonly property bool tight: pages.width + toggles.width + tools.width + 2 * Theme.gap16
                                  > width - 2 * Theme.gap12

    implicitHeight: (tight ? 2 * 32 + Theme.gap4 : 32) + 2 * Theme.gap8
    color: Theme.window

    Accessible.role: Accessible.ToolBar
    Accessible.name: "Page"

    Hairline {
        anchors.top: parent.top
        width: parent.width
    }

    Row {
        id: pages

        x: Theme.gap12
        y: Theme.gap8
        height: 32
        spacing: Theme.gap4

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.up"
            help: "Previous page"
            enabled: !bar.view.first
            onClicked: bar.compare.stepPage(-1)
        }

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.down"
            help: "Next page"
            enabled: !bar.view.last
            onClicked: bar.compare.stepPage(1)
        }

        Digits {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            text: bar.view.place
        }
    }

    Row {
        id: toggles

        x: bar.tight ? Theme.gap16 : pages.x + pages.width + Theme.gap16
        y: Theme.gap8 + (bar.tight ? 32 + Theme.gap4 : 0)
        height: 32
        spacing: Theme.gap12

        Repeater {
            id: panes

            model: bar.compare.toggles

            PaneToggle {
                // By id: a toggle that goes has no parent any more.
                anchors.verticalCenter: toggles.verticalCenter
                widest: (bar.width - 2 * Theme.gap16) / panes.count - toggles.spacing
                onClicked: bar.compare.togglePane(key)
            }
        }
    }

    Row {
        id: tools

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        y: Theme.gap8
        height: 32
        spacing: Theme.gap8

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "minus.magnifyingglass"
            help: "Zoom out (⌘−)"
            enabled: bar.view.canZoomOut
            onClicked: bar.compare.zoomOut()
        }

        Slider {
            anchors.verticalCenter: parent.verticalCenter
            width: 72
            label: help
            help: "Zoom (⌘+ and ⌘−, ⌘0 to fit, or pinch)"
            from: 1
            to: 4
            level: bar.view.zoom
            onMoved: level => bar.compare.zoomTo(level)
        }

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "plus.magnifyingglass"
            help: "Zoom in (⌘+)"
            enabled: bar.view.canZoomIn
            onClicked: bar.compare.zoomIn()
        }

        Pressable {
            anchors.verticalCenter: parent.verticalCenter
            implicitWidth: 44
            implicitHeight: 26
            label: bar.view.percent
            help: "Fit (⌘0)"
            onClicked: bar.compare.fit()

            Digits {
                anchors.centerIn: parent
                size: Theme.body
                text: bar.view.percent
                Accessible.ignored: true
            }
        }

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "sidebar.right"
            help: bar.compare.notes.help
            checked: bar.compare.notes.open
            onClicked: bar.compare.toggleNotes()
        }
    }

    Shortcut {
        sequence: "Ctrl+Up"
        enabled: !bar.view.first
        onActivated: bar.compare.stepPage(-1)
    }

    Shortcut {
        sequence: "Ctrl+Down"
        enabled: !bar.view.last
        onActivated: bar.compare.stepPage(1)
    }
}
