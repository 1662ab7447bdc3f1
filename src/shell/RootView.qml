import QtQuick
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

// What fills the window: the sign-in screen, or the board beside what is on show; the toast over
// all of it.
FocusScope {
    id: view

    required property RootModel root
    required property SignInModel signIn
    required property BoardModel board
    required property ActivityModel activity
    required property ClaudeLogModel log
    required property PlanModel plan
    required property FileModel file
    required property ReportModel report
    required property CompareModel compare
    required property InspectorModel inspector
    required property NotesModel notes
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share
    required property HistoryModel history
    required property ProfileModel profile
    required property UpdateModel update
    required property PictureSource pictures

    // A command of the menus' was chosen in the view, by its key.
    signal commanded(string key)

    readonly property rootViewValue shown: root.view
    readonly property bool atPerson: shown.content === "profile"
    // What somebody writes there is still there behind a person's page.
    readonly property string openFile: shown.content === "file" || atPerson ? shown.file : ""
    property Sidebar column: null
    // The view of that ticket.
    property FileView ticket: null
    // The page of a person over it.
    property ProfileView page: null

    focus: true

    // For what stands in front.
    function takeKeyboard() {
        if (page)
            page.takeKeyboard();
        else
            ticket?.takeKeyboard();
    }

    // Wherever the keyboard is, as long as nothing there takes it.
    Keys.onEscapePressed: event => {
        event.accepted = page !== null;
        page?.leaving();
    }

    Loader {
        anchors.fill: parent
        active: !view.shown.signedIn
        sourceComponent: signInSide
        // Even from a menu, which could not give the keyboard back to what has gone.
        onLoaded: forceActiveFocus()
    }

    Loader {
        anchors.fill: parent
        active: view.shown.signedIn
        sourceComponent: boardSide
    }

    Component {
        id: signInSide

        SignInView {
            focus: true
            signIn: view.signIn
        }
    }

    Component {
        id: boardSide

        Item {
            Sidebar {
                id: sidebar

                height: parent.height
                width: view.root.sidebarWidth(view.width)
                board: view.board
                activity: view.activity
                log: view.log
                pictures: view.pictures
                onCommanded: key => view.commanded(key)
                Component.onCompleted: view.column = sidebar
            }

            Hairline {
                id: rule

                anchors.left: sidebar.right
                vertical: true
                height: parent.height
            }

            UpdateBar {
                id: updates

                anchors.left: rule.right
                anchors.right: parent.right
                update: view.update
                onKeptOut: view.takeKeyboard()
            }

            OfflineBanner {
                id: banner

                anchors.left: rule.right
                anchors.right: parent.right
                anchors.top: updates.bottom
                open: view.shown.offline
                problem: view.shown.problem
            }

            Item {
                id: content

                anchors.left: rule.right
                anchors.right: parent.right
                anchors.top: banner.bottom
                anchors.bottom: parent.bottom

                KeyboardHold {
                    id: hold

                    around: content
                }

                // Another ticket is another view: nothing of the last one's state carries over. The last
                // one goes before its models turn to the other, which it would follow for nothing.
                Repeater {
                    model: view.openFile !== "" && view.openFile === view.file.ticket ? [view.openFile] : []
                    onItemAdded: (index, item) => {
                        view.ticket = item as FileView;
                        if (!view.page && hold.held && hold.ringed)
                            view.ticket.takeKeyboard();
                    }
                    onItemRemoved: (index, item) => {
                        if (view.ticket === item)
                            view.ticket = null;
                    }

                    FileView {
                        anchors.fill: parent
                        visible: view.page === null
                        file: view.file
                        report: view.report
                        plan: view.plan
                        approval: view.approval
                        send: view.send
                        upload: view.upload
                        share: view.share
                        compare: view.compare
                        notes: view.notes
                        pictures: view.pictures
                        panel: inspectorPanel
                    }
                }

                Loader {
                    anchors.fill: parent
                    active: view.openFile === "" && !view.atPerson
                    sourceComponent: view.shown.content === "multi" ? multiView : plainView
                }

                Repeater {
                    model: view.atPerson ? [view.shown.person] : []
                    onItemAdded: (index, item) => {
                        before.note(view.Window.activeFocusItem);
                        view.page = item as ProfileView;
                        if (sidebar.people.keyed(view.shown.person))
                            view.page.takeKeyboard();
                        else
                            view.page.forceActiveFocus(Qt.MouseFocusReason);
                    }
                    onItemRemoved: (index, item) => {
                        const quiet = hold.inside === item;
                        view.page = null;
                        if (quiet && !view.atPerson) {
                            // It may lie in a panel that has been hidden meanwhile.
                            if (before.item && !before.giveBack(Qt.OtherFocusReason))
                                view.ticket?.takeKeyboard();
                        } else if (hold.held && hold.ringed && !view.atPerson)
                            view.ticket?.takeKeyboard();
                    }

                    ProfileView {
                        anchors.fill: parent
                        profile: view.profile
                        pictures: view.pictures
                        onPhotoWanted: view.commanded("changePhoto")
                        onLeaving: {
                            if (hold.inside && hold.inside !== view.page && hold.ringed)
                                sidebar.people.takeKeyboard(person.email);
                            view.profile.back();
                        }
                    }
                }

                CameFrom {
                    id: before
                }
            }

            ApprovalSheets {
                anchors.fill: parent
                send: view.send
                upload: view.upload
                onChoosing: chooser.open()
                onKeptOut: view.takeKeyboard()
            }

            PdfChooser {
                id: chooser

                upload: view.upload
            }
        }
    }

    Component {
        id: inspectorPanel

        Inspector {
            inspector: view.inspector
            notes: view.notes
            history: view.history
            pictures: view.pictures
            compare: view.compare
        }
    }

    Component {
        id: multiView

        MultiView {
            file: view.file
            report: view.report
        }
    }

    Component {
        id: plainView

        PlainView {
            loading: view.shown.content === "loading"
            headline: view.shown.headline
            line: view.shown.line
        }
    }

    ToastLayer {
        anchors.fill: parent
        toast: view.root.toast
        aside: view.shown.signedIn ? view.root.sidebarWidth(view.width) : 0
        foot: view.shown.signedIn && view.shown.content === "file" ? view.ticket?.barHeight ?? 0 : 0
        beside: view.shown.signedIn && view.shown.content === "file" ? view.ticket?.kept ?? 0 : 0
        onUndo: view.root.undo()
        onKeptOut: view.takeKeyboard()
    }
}
