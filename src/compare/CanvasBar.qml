pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The strip under the stage: pages, panes, the way they are compared, zoom and the notes panel. In
// one row where that fits, else in two. It stands on its foot and grows upwards, so that nothing
// moves away under the pointer.
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
    readonly property real gap: Theme.gap8
    readonly property real end: width - Theme.gap8
    // The rows are those of this width and never of a ticket: choosing another one, or getting its
    // pages, leaves them as they are. What is longer than its room is cut short.
    readonly property real least: 88
    readonly property real most: 180
    // What one row leaves to the page's place and the toggles.
    readonly property real free: end - pages.x - pages.lead - modes.width - tools.width - 3 * gap
    readonly property bool single: free >= least + toggles.least
    // What an overlay needs stands there if it can, else in a row on top.
    readonly property bool beside: single ? free >= 620 : across >= least
    readonly property int rows: (single ? 1 : 2) + (view.overlay && !beside ? 1 : 0)
    // What is left of the free to these in every mode.
    readonly property real kept: free - (beside ? overlay.most + gap : 0)
    // What two rows leave to the page's place, above the toggles and before an overlay's tools.
    readonly property real across: tools.x - 2 * gap - overlay.least - pages.x - pages.lead

    // For what was in the panel that has gone.
    function takeKeyboard(reason: int) {
        panel.forceActiveFocus(reason);
    }

    // From the foot.
    function rowAt(row: int): real {
        return height - Theme.gap8 - line - row * (line + Theme.gap4);
    }

    implicitHeight: rows * (line + Theme.gap4) - Theme.gap4 + 2 * Theme.gap8
    color: Theme.window

    Accessible.role: Accessible.ToolBar
    Accessible.name: "Page"

    Hairline {
        anchors.top: parent.top
        width: parent.width
    }

    // Tab goes the way of the eye: what stands elsewhere in two rows than in one has a slot for each.
    Item {
        id: onTop
    }

    PageSteps {
        id: pages

        x: Theme.gap4
        y: bar.rowAt(bar.single ? 0 : 1)
        height: bar.line
        compare: bar.compare
        // Names have more room than numbers where the toggles have theirs.
        reach: !bar.single ? bar.beside ? Math.min(bar.across, bar.most) : bar.most
            : Math.min(Math.max(numbers, Math.min(numbers + 40, bar.kept - toggles.ample)),
                       bar.kept - toggles.least, bar.most)
    }

    Item {
        id: overlayBehindPages
    }

    Item {
        id: toolsBehindPages
    }

    Row {
        id: toggles

        // Of any ticket's: two names of references, and as little of a supplier's, or as much.
        readonly property real least: 228
        readonly property real ample: 294
        // The supplier's, whose name may be of any length, is the one that gives way.
        readonly property real others: {
            let sum = 0;
            for (let i = 1; i < panes.count; ++i)
                sum += spacing + Math.min(panes.itemAt(i)?.implicitWidth ?? 0, most);
            return sum;
        }
        readonly property real shortest: 34
        readonly property real most: 120
        readonly property real room: bar.single ? bar.kept - pages.reach : modes.x - bar.gap - x
        // The last does, where another face makes them wider.
        readonly property real over: Math.max(0, shortest + others - room)

        x: bar.single ? pages.x + pages.width + bar.gap : Theme.gap8
        y: bar.rowAt(0)
        height: bar.line
        spacing: bar.gap

        Repeater {
            id: panes

            model: bar.compare.toggles

            PaneToggle {
                required property int index

                // By id: a toggle that goes has no parent any more.
                anchors.verticalCenter: toggles.verticalCenter
                width: index === 0 ? Math.min(implicitWidth, Math.max(toggles.shortest, toggles.room - toggles.others))
                    : Math.min(implicitWidth, toggles.most) - (index === panes.count - 1 ? toggles.over : 0)
                onClicked: {
                    bar.toggled();
                    bar.compare.togglePane(key);
                }
            }
        }
    }

    Item {
        id: overlayBehindPanes
    }

    Segmented {
        id: modes

        x: (bar.single ? tools.x - bar.gap : bar.end) - width
        y: bar.rowAt(0) + (bar.line - height) / 2
        label: "View"
        padding: 6
        options: bar.compare.modes
        current: bar.view.mode
        onPicked: key => bar.compare.setMode(key)
    }

    Item {
        id: toolsBehindModes
    }

    OverlayTools {
        id: overlay

        readonly property real from: pages.x + pages.lead + pages.reach + bar.gap

        parent: !bar.beside ? onTop : bar.single ? overlayBehindPanes : overlayBehindPages
        visible: bar.view.overlay
        x: !bar.beside ? Math.min(modes.x, bar.end - width)
            : bar.single ? modes.x - bar.gap - width : (from + tools.x - bar.gap - width) / 2
        y: bar.rowAt(bar.beside && bar.single ? 0 : bar.beside ? 1 : bar.rows - 1)
        height: bar.line
        compare: bar.compare
        room: bar.beside && !bar.single ? tools.x - bar.gap - from : Infinity
    }

    Row {
        id: tools

        parent: bar.single ? toolsBehindModes : toolsBehindPages
        x: bar.end - width
        y: pages.y
        height: bar.line
        spacing: 2

        ZoomTools {
            height: parent.height
            compare: bar.compare
            // Finer where there is room for it.
            reach: bar.width > 1000 ? 72 : 44
        }

        IconButton {
            id: panel

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
