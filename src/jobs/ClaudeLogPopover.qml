import QtQuick
import QtQuick.Templates as T
import Vellix.Jobs
import Vellix.Pieces

// The log over the window, less high where the window is.
Popover {
    id: popover

    required property ClaudeLogModel log

    function toggle(byKey: bool) {
        if (opened)
            close();
        else
            openAt(byKey);
    }

    width: 380
    height: Math.min(480, (T.Overlay.overlay?.height ?? 480) - 2 * margins)
    padding: 0
    y: -height - Theme.gap4
    label: "Claude's log"
    first: panel.first

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popover.label

        ClaudeLog {
            id: panel

            anchors.fill: parent
            anchors.margins: 1
            log: popover.log
        }
    }
}
