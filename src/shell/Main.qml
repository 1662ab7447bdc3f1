pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vellix.Approval
import Vellix.Board
import Vellix.Compare
import Vellix.Inspector
import Vellix.Jobs
import Vellix.Notes
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile
import Vellix.Shell
import Vellix.Ticket
import Vellix.Update

// The one main window, and the settings window beside it.
Window {
    id: window

    required property RootModel root
    required property SignInModel signIn
    required property CommandsModel commands
    required property PhotoModel photo
    required property SettingsModel settings
    required property BoardModel board
    required property ActivityModel activity
    required property PlanModel plan
    required property FileModel file
    required property ReportModel report
    required property ClaudeLogModel log
    required property CompareModel compare
    required property InspectorModel inspector
    required property NotesModel notes
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share
    required property HistoryModel history
    required property ApproversModel approvers
    required property ProfileModel profile
    required property UpdateModel update
    required property PictureSource pictures

    title: "Vellix"
    width: 1500
    height: 940
    minimumWidth: 760
    minimumHeight: 540
    visible: true
    color: Theme.window

    // With the main window the program ends, whatever other window is open.
    onClosing: Qt.quit()

    // The Mac has a menu bar of its own, which knows the shortcuts as well.
    readonly property bool systemMenus: Qt.platform.os === "osx"

    // By its name, since it is compiled on the Mac alone.
    Loader {
        Component.onCompleted: if (window.systemMenus)
            setSource("SystemMenus.qml", { commands: window.commands })
    }

    // All of it stays as it is behind a screen that covers it.
    Item {
        anchors.fill: parent
        visible: !cover.covers

        MenuStrip {
            id: menus

            visible: !window.systemMenus
            width: parent.width
            height: window.systemMenus ? 0 : implicitHeight
            commands: window.commands
        }

        RootView {
            id: view

            anchors.fill: parent
            anchors.topMargin: menus.height
            focus: true
            root: window.root
            signIn: window.signIn
            board: window.board
            activity: window.activity
            plan: window.plan
            file: window.file
            report: window.report
            log: window.log
            compare: window.compare
            inspector: window.inspector
            notes: window.notes
            approval: window.approval
            send: window.send
            upload: window.upload
            share: window.share
            history: window.history
            profile: window.profile
            update: window.update
            pictures: window.pictures
            onCommanded: key => window.commands.run(key)
        }

        PhotoChooser {
            id: photoChooser

            photo: window.photo
        }
    }

    CommandKeys {
        systemMenus: window.systemMenus
        commands: window.commands
    }

    KeyboardParts {
        id: parts

        within: view
    }

    UpdateCover {
        id: cover

        anchors.fill: parent
        z: 1
        update: window.update
        floats: T.Overlay.overlay
        onCoversChanged: {
            if (covers)
                (preferences.object as SettingsWindow)?.close();
        }
        onKeptOut: view.takeKeyboard()
    }

    Binding {
        target: window.commands
        property: "covered"
        value: cover.covers
    }

    OnDemand {
        id: preferences

        SettingsWindow {
            settings: window.settings
            approvers: window.approvers
            commands: window.commands
            transientParent: window
        }
    }

    Connections {
        target: window.commands

        function onEndWanted() {
            window.close();
        }
        function onPartWanted(by: int) {
            parts.step(by);
        }
        function onTicketWanted(by: int) {
            view.column?.step(by);
        }
        function onPhotoWanted() {
            photoChooser.open();
        }
        function onSettingsWanted() {
            window.settings.update();
            const made = preferences.made() as SettingsWindow;
            made.show();
            made.requestActivate();
        }
    }

    Binding {
        target: Theme
        property: "appearance"
        value: window.root.appearance
    }
}
