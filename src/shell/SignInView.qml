import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The first screen of a person who is not signed in.
FocusScope {
    id: view

    required property SignInModel signIn

    readonly property signInView shown: signIn.view
    readonly property bool waiting: shown.waiting
    readonly property bool resting: shown.resting
    property bool appeared: false
    // From nothing to the whole picture.
    property real entrance: appeared ? 1 : 0

    // The keyboard is in the sheet while it stands, and back at the button after. A ring shows
    // there when one showed before.
    onWaitingChanged: {
        const reason = button.visualFocus || sheet.keyed ? Qt.TabFocusReason : Qt.OtherFocusReason;
        sheet.open = waiting;
        (waiting ? sheet.first : button).forceActiveFocus(reason);
    }

    Keys.onEscapePressed: event => {
        event.accepted = waiting;
        if (waiting)
            signIn.cancel();
    }

    // Of itself the keyboard is at the button, once the hands rest.
    function settle() {
        if (resting)
            rest.focus = true;
        else if (!waiting)
            button.focus = true;
    }

    onRestingChanged: settle()
    Component.onCompleted: {
        appeared = true;
        settle();
    }

    Behavior on entrance {
        NumberAnimation {
            duration: Theme.reducedMotion ? 0 : 900
            easing.type: Easing.BezierSpline
            easing.bezierCurve: Theme.curve
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }

    Item {
        id: content

        // A little above the middle, with room for the sheet below at every size.
        readonly property real start: Math.min((view.height - column.height) / 2 - Theme.gap24,
                                             foot.y - 2 * Theme.gap16 - sheet.height - column.height)

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(440, view.width - 2 * Theme.gap24)
        height: view.height
        opacity: view.entrance
        transform: Translate {
            y: (1 - view.entrance) * 6
        }

        Column {
            id: column

            y: Math.max(Theme.gap16, Math.round(content.start))
            width: parent.width

            Item {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 76
                height: 76
                scale: 0.9 + 0.1 * view.entrance

                Shadow {
                    anchors.fill: parent
                    radius: frame.radius
                    color: Qt.alpha(Theme.shadow, 0.1)
                }

                Rectangle {
                    id: frame

                    anchors.fill: parent
                    radius: 20
                    color: Theme.raised
                    border.width: 1
                    border.color: Theme.quietFill
                }

                SorelMark {
                    anchors.centerIn: parent
                    size: 40
                    working: view.shown.working
                }
            }

            Item {
                width: 1
                height: Theme.gap16
            }

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                font.family: Theme.serif
                size: 40
                text: "Vellix"
                Accessible.role: Accessible.Heading
            }

            CentredLabel {
                width: parent.width
                size: Theme.large
                color: Theme.muted
                text: "Supplier proofs, checked against what we sent."
            }

            Item {
                visible: service.visible
                width: 1
                height: Theme.gap12
            }

            CentredLabel {
                id: service

                width: parent.width
                visible: text !== ""
                size: Theme.body
                text: view.shown.service
            }

            Item {
                width: 1
                height: Theme.gap24
            }

            SignInButton {
                id: button

                anchors.horizontalCenter: parent.horizontalCenter
                title: view.shown.button
                working: view.shown.working
                wary: view.shown.sudden
                onAction: view.signIn.signIn()
            }

            Item {
                width: 1
                height: Theme.gap12
            }

            // Its room is there from the start.
            Item {
                width: parent.width
                height: 42

                CentredLabel {
                    width: parent.width
                    size: Theme.body
                    color: Theme.muted
                    text: view.shown.note
                }
            }
        }

        WaitingSheet {
            id: sheet

            anchors.horizontalCenter: parent.horizontalCenter
            y: column.y + column.height + Theme.gap16
            width: parent.width
            open: false
            onAgain: view.signIn.openAgain()
            onCancel: view.signIn.cancel()
        }
    }

    // What somebody types or presses who has not seen yet that the screen is another one ends here.
    Item {
        id: rest

        Keys.onPressed: event => {
            event.accepted = true;
            view.signIn.touch();
        }
    }

    Ground {
        visible: view.resting
        anchors.fill: parent
        onStruck: view.signIn.touch()
    }

    Label {
        id: foot

        anchors.horizontalCenter: parent.horizontalCenter
        y: view.height - height - Theme.gap24
        opacity: view.entrance
        size: Theme.note
        color: Theme.faint
        text: "For Renny and Jorvas"
    }
}
