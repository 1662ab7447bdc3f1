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
    // Pages and zoom stand above panes and modes where all of them do not fit side by side, and where
    // those of most tickets do not: choosing another ticket leaves them where they are.
    readonly property real needed: pages.x + pages.width + toggles.least + modes.width + tools.width + 3 * gap
    readonly property bool single: needed <= end && width >= 772
    // Between what stands at the ends of the first row.
    readonly property real from: gap + (single ? toggles.x + toggles.width : pages.x + pages.width)
    readonly property real to: (single ? modes.x : tools.x) - gap
    // What an overlay needs stands there if it can, else in a row on top.
    readonly property bool beside: overlay.least <= to - from
    readonly property int rows: (single ? 1 : 2) + (view.overlay && !beside ? 1 : 0)

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
    }

    Item {
        id: overlayBehindPages
    }

    Item {
        id: toolsBehindPages
    }

    Row {
        id: toggles

        // The supplier's, whose name may be of any length, is the one that gives way.
        readonly property real least: Math.min(first, shortest) + others
        readonly property real first: panes.count > 0 ? panes.itemAt(0)?.implicitWidth ?? 0 : 0
        readonly property real others: {
            let sum = 0;
            for (let i = 1; i < panes.count; ++i)
                sum += spacing + Math.min(panes.itemAt(i)?.implicitWidth ?? 0, most);
            return sum;
        }
        readonly property real shortest: 44
        readonly property real most: 120
        readonly property real room: modes.x - bar.gap - x

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
                width: Math.min(implicitWidth, index > 0 ? toggles.most : Math.max(toggles.shortest, toggles.room - toggles.others))
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

        parent: !bar.beside ? onTop : bar.single ? overlayBehindPanes : overlayBehindPages
        visible: bar.view.overlay
        x: bar.beside ? (bar.from + bar.to - width) / 2 : Math.min(modes.x, bar.end - width)
        y: bar.rowAt(bar.beside && bar.single ? 0 : bar.beside ? 1 : bar.rows - 1)
        height: bar.line
        compare: bar.compare
        room: bar.beside ? bar.to - bar.from : Infinity
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
