import QtQuick
import Vellix.Pieces
import Vellix.Update

// The screen in front of everything while this copy is too old to go on. There is no way past it.
FocusScope {
    id: screen

    required property UpdateModel update

    readonly property requiredUpdateView shown: update.required
    readonly property updateStepView step: shown.step

    Accessible.role: Accessible.AlertMessage
    Accessible.name: heading.text + ". " + line.laidOut

    onStepChanged: {
        if (step.text !== "")
            announcement.renew();
        // The button that had the keyboard has gone; Tab leads to the next one.
        if (!hold.inside || !hold.inside.visible)
            forceActiveFocus(Qt.OtherFocusReason);
    }

    KeyboardHold {
        id: hold

        around: screen
    }

    Announcement {
        id: announcement

        alert: message
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }

    Ground {
        anchors.fill: parent
    }

    // What somebody types who has not seen it yet ends here.
    Keys.onPressed: event => event.accepted = event.text !== "" && event.key !== Qt.Key_Tab && event.key !== Qt.Key_Backtab

    Column {
        id: column

        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(Theme.gap16, Math.round((parent.height - height) / 2 - Theme.gap24))
        width: Math.min(440, parent.width - 2 * Theme.gap24)
        spacing: Theme.gap12

        SorelMark {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 40
            working: screen.step.working
        }

        Item {
            width: 1
            height: Theme.gap4
        }

        Label {
            id: heading

            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            size: Theme.display
            weight: Font.Bold
            text: "Update Vellix"
            Accessible.role: Accessible.Heading
        }

        CentredLabel {
            id: line

            width: parent.width
            maximumLineCount: 6
            elide: Text.ElideRight
            tellsWhole: true
            size: Theme.row
            color: Theme.muted
            text: screen.shown.line
        }

        // As high in every step.
        Item {
            width: parent.width
            height: Math.max(84, message.height + Theme.gap12 + 26)

            BigButton {
                anchors.horizontalCenter: parent.horizontalCenter
                y: Theme.gap12
                width: Math.min(260, parent.width)
                visible: screen.step.updatable
                prominent: true
                title: "Update now"
                icon: "arrow.down"
                onAction: screen.update.install()
            }

            Row {
                id: told

                anchors.horizontalCenter: parent.horizontalCenter
                y: Theme.gap12
                visible: message.text !== ""
                spacing: Theme.gap8

                Spinner {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: screen.step.working
                    size: 12
                }

                Label {
                    id: message

                    width: Math.min(Math.ceil(implicitWidth), column.width - 20)
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    maximumLineCount: 6
                    elide: Text.ElideRight
                    tellsWhole: true
                    size: Theme.note
                    text: screen.step.text
                    Accessible.role: Accessible.AlertMessage
                }
            }

            UpdateButtons {
                anchors.horizontalCenter: parent.horizontalCenter
                y: told.y + told.height + Theme.gap12
                visible: screen.step.repeatable
                update: screen.update
                says: screen.step.text
            }
        }
    }
}
