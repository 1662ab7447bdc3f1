import QtQuick
import Vellix.Pieces
import Vellix.Update

// The strip that tells of a newer build, and of how it gets on with it. It keeps its words while it
// goes.
FocusScope {
    id: bar

    required property UpdateModel update

    readonly property updateBarView current: update.bar
    property updateBarView shown: update.bar
    property bool open: false
    // What shows before that is told twice.
    property bool complete: false
    // The keyboard was at a button that has gone, and what had it before has gone as well.
    signal keptOut()

    height: open ? row.height + 2 * Theme.gap8 : 0
    visible: height > 0
    clip: true
    enabled: open

    Accessible.role: Accessible.AlertMessage
    Accessible.name: notes.visible ? told.laidOut + " " + notes.laidOut : told.laidOut

    // What had the keyboard gives it up before it goes.
    function follow() {
        if (hold.inside && (!current.open || current.step.working))
            giveBack();
        if (current.open) {
            if (open && shown.text !== current.text)
                announcement.renew();
            shown = current;
        }
        open = current.open;
    }

    onCurrentChanged: {
        if (complete)
            follow();
    }
    Component.onCompleted: {
        complete = true;
        shown = current;
        follow();
    }

    function giveBack() {
        if (!before.giveBack(Qt.TabFocusReason))
            keptOut();
    }

    Announcement {
        id: announcement

        alert: bar
    }

    CameFrom {
        id: before
    }

    KeyboardHold {
        id: hold

        around: bar
        onKeyedChanged: {
            if (keyed && !inside)
                before.note(keyed);
        }
    }

    Behavior on height {
        Glide {}
    }

    Rectangle {
        anchors.fill: parent
        color: bar.shown.step.repeatable ? Theme.tint.red : Theme.tint.blue
    }

    Item {
        id: row

        y: Theme.gap8
        width: parent.width
        height: Math.max(words.height, buttons.height)

        Symbol {
            x: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            visible: !bar.shown.step.working
            size: 14
            name: bar.shown.symbol
            color: bar.shown.step.repeatable ? Theme.danger : Theme.strong.blue
        }

        Spinner {
            x: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            visible: bar.shown.step.working
            size: 14
        }

        Flow {
            id: words

            x: Theme.gap16 + 14 + Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - buttons.width - Theme.gap16 - Theme.gap12
            spacing: Theme.gap8

            Label {
                id: told

                width: Math.min(Math.ceil(implicitWidth), parent.width)
                wrapMode: Text.Wrap
                maximumLineCount: 3
                elide: Text.ElideRight
                tellsWhole: true
                size: Theme.body
                weight: Font.Medium
                text: bar.shown.text
            }

            Label {
                id: notes

                visible: text !== ""
                width: Math.min(Math.ceil(implicitWidth), parent.width)
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
                tellsWhole: true
                size: Theme.body
                color: Theme.muted
                text: bar.shown.notes
            }
        }

        Row {
            id: buttons

            anchors.right: parent.right
            anchors.rightMargin: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            // Room for them from the start, also while there is none to press.
            height: 26
            spacing: Theme.gap8

            Pill {
                visible: bar.shown.step.updatable
                title: "Update now"
                filled: true
                color: Theme.accent
                says: bar.shown.text
                onClicked: bar.update.install()
            }

            Pill {
                visible: bar.shown.postponable
                title: "Later"
                raised: true
                says: bar.shown.text
                onClicked: bar.update.snooze()
            }

            UpdateButtons {
                visible: bar.shown.step.repeatable
                update: bar.update
                says: bar.shown.text
            }
        }
    }
}
