import QtQuick
import Vellix.Approval
import Vellix.Pieces
import Vellix.Shell

// The settings in a window of their own, as tall as they are.
Window {
    id: window

    required property SettingsModel settings
    required property ApproversModel approvers
    required property CommandsModel commands

    title: "Settings"
    width: 460
    height: Math.min(content.implicitHeight, window.Screen.desktopAvailableHeight - 80)
    minimumWidth: 380
    minimumHeight: 240
    maximumWidth: 460
    flags: Qt.Dialog | Qt.WindowCloseButtonHint | Qt.WindowTitleHint | Qt.WindowSystemMenuHint
    color: Theme.window

    SettingsView {
        id: content

        anchors.fill: parent
        focus: true
        settings: window.settings
        approvers: window.approvers
    }

    CommandKeys {
        elsewhere: true
        commands: window.commands
    }

    // Whatever has the keyboard, and if nothing has.
    Shortcut {
        sequences: ["Ctrl+W", "Escape"]
        onActivated: window.close()
    }
}
