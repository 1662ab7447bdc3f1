pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The strip under the stage: pages, panes, the way they are compared, zoom and the notes panel. In
// one row where that fits, else in two or three.
Rectangle {
    id: bar

    required property CompareModel compare
    required property bool notesOpen
    required property string notesHelp

    // A pane is about to be shown or hidden.
    signal toggled()
    signal notesToggled()

    readonly property canvasBarView view: compare.bar
    readonly property real line: 32
    readonly property real room: width - 2 * Theme.gap12
    readonly property real gap: Theme.gap12
    // The picker's row. What an overlay needs comes beside it where there is room, else below, so
    // that nothing moves away under the pointer.
    readonly property int modesRow: pages.width + toggles.width + modes.width + tools.width + 3 * gap <= room ? 0
                                    : toggles.width + modes.width + gap <= room ? 1 : 2
    readonly property real taken: modes.width + gap + (modesRow === 2 ? 0 : toggles.width + gap)
                                  + (modesRow === 0 ? pages.width + tools.width + 2 * gap : 0)
    readonly property int overlayRow: taken + overlay.width <= room ? modesRow : modesRow + 1
    readonly property int rows: 1 + (view.overlay ? overlayRow : modesRow)

    // At the last page, or the last step, the keyboard goes on to the way back: once that is enabled.
    function handOn(from: Item, to: Item) {
        if (from.enabled || !from.focus)
            return;
        handing.to = to;
        handing.start();
    }

    function rowAt(row: int): real {
        return Theme.gap8 + row * (line + Theme.gap4);
    }

    implicitHeight: rowAt(rows) - Theme.gap4 + Theme.gap8
    color: Theme.window

    Accessible.role: Accessible.ToolBar
    Accessible.name: "Page"

    Timer {
        id: handing

        property Item to

        interval: 0
        onTriggered: {
            if (to.enabled)
                to.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Hairline {
        anchors.top: parent.top
        width: parent.width
    }

    Row {
        id: pages

        x: Theme.gap12
        y: bar.rowAt(0)
        height: bar.line
        spacing: Theme.gap4

        IconButton {
            id: previous

            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.up"
            onEnabledChanged: bar.handOn(previous, next)
            help: "Previous page"
            enabled: !bar.view.first
            onClicked: bar.compare.stepPage(-1)
        }

        IconButton {
            id: next

            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.down"
            onEnabledChanged: bar.handOn(next, previous)
            help: "Next page"
            enabled: !bar.view.last
            onClicked: bar.compare.stepPage(1)
        }

        Digits {
            id: place

            visible: implicitWidth <= 180
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            text: bar.view.place
        }

        // A page may have any name.
        Label {
            visible: !place.visible
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, 180)
            elide: Text.ElideMiddle
            tellsWhole: true
            size: Theme.body
            text: visible ? bar.view.place : ""
        }
    }

    Row {
        id: toggles

        x: bar.modesRow === 0 ? pages.x + pages.width + bar.gap : Theme.gap16
        y: bar.rowAt(Math.min(bar.modesRow, 1))
        height: bar.line
        spacing: Theme.gap12

        Repeater {
            id: panes

            model: bar.compare.toggles

            PaneToggle {
                // By id: a toggle that goes has no parent any more.
                anchors.verticalCenter: toggles.verticalCenter
                widest: (bar.width - 2 * Theme.gap16) / panes.count - toggles.spacing
                onClicked: {
                    bar.toggled();
                    bar.compare.togglePane(key);
                }
            }
        }
    }

    Segmented {
        id: modes

        x: bar.modesRow === 0 ? tools.x - bar.gap - width
           : bar.modesRow === 1 ? bar.width - Theme.gap12 - width : Theme.gap12
        y: bar.rowAt(bar.modesRow) + (bar.line - height) / 2
        label: "View"
        padding: 9
        options: bar.compare.modes
        current: bar.view.mode
        onPicked: key => bar.compare.setMode(key)
    }

    Row {
        id: overlay

        visible: bar.view.overlay
        x: bar.overlayRow === bar.modesRow && bar.modesRow < 2 ? modes.x - bar.gap - width
                                                               : bar.width - Theme.gap12 - width
        y: bar.rowAt(bar.overlayRow) + (bar.line - height) / 2
        height: modes.height
        spacing: Theme.gap12

        Slider {
            anchors.verticalCenter: parent.verticalCenter
            width: 96
            label: help
            help: "How much of ours shows through"
            level: bar.view.opacity
            onMoved: level => bar.compare.setOpacity(level)
        }

        CheckBox {
            anchors.verticalCenter: parent.verticalCenter
            text: "Difference"
            size: Theme.body
            checked: bar.view.difference
            onToggled: checked => bar.compare.setDifference(checked)
        }
    }

    Row {
        id: tools

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        y: bar.rowAt(0)
        height: bar.line
        spacing: Theme.gap4

        IconButton {
            id: less

            anchors.verticalCenter: parent.verticalCenter
            symbol: "minus.magnifyingglass"
            onEnabledChanged: bar.handOn(less, more)
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
            id: more

            anchors.verticalCenter: parent.verticalCenter
            symbol: "plus.magnifyingglass"
            onEnabledChanged: bar.handOn(more, less)
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
            help: bar.notesHelp
            checked: bar.notesOpen
            color: checked ? Theme.accent : Theme.muted
            onClicked: bar.notesToggled()
        }
    }

    Shortcut {
        sequence: "Ctrl+Up"
        enabled: bar.visible && !bar.view.first
        onActivated: bar.compare.stepPage(-1)
    }

    Shortcut {
        sequence: "Ctrl+Down"
        enabled: bar.visible && !bar.view.last
        onActivated: bar.compare.stepPage(1)
    }
}
