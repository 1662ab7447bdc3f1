import QtQuick
import Vellix.Approval
import Vellix.Jobs
import Vellix.Pieces
import Vellix.Shell

// One panel alone in the main window's place.
Window {
    id: window

    required property RootModel root
    required property SettingsModel settings
    required property ApproversModel approvers
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share
    required property ClaudeLogModel log
    required property string panel
    required property markLabView lab
    required property var symbols
    // For a picture, which has the size that is asked.
    property bool staged: false

    readonly property var panels: ({ lab: lab, settings: settingsPanel, send: sheet, upload: sheet, share: sheet, log: logPanel })

    title: "Vellix"
    width: 1500
    height: 940
    minimumWidth: staged ? 0 : 760
    minimumHeight: staged ? 0 : 540
    visible: true
    color: Theme.window

    Binding {
        target: Theme
        property: "appearance"
        value: window.root.appearance
    }

    Loader {
        anchors.fill: parent
        sourceComponent: window.panels[window.panel]
    }

    Component {
        id: lab

        MarkLab {
            lab: window.lab
            symbols: window.symbols
        }
    }

    Component {
        id: sheet

        PanelShot {
            which: window.panel
            approval: window.approval
            send: window.send
            upload: window.upload
            share: window.share
        }
    }

    Component {
        id: settingsPanel

        Item {
            SettingsView {
                anchors.horizontalCenter: parent.horizontalCenter
                width: implicitWidth
                height: parent.height
                settings: window.settings
                approvers: window.approvers
            }
        }
    }

    Component {
        id: logPanel

        Item {
            ClaudeLog {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 380
                height: parent.height
                log: window.log
            }
        }
    }
}
