pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// One finding: open with its words and its two decisions, or folded to a line once it is decided.
Item {
    id: card

    required property string id
    required property string caption
    required property string title
    required property string detail
    required property var wordings
    required property string decision
    required property bool issue
    required property bool fine
    required property bool busy
    required property bool selectable
    required property bool selected
    required property bool folds
    required property string decided
    required property string foldedIcon
    required property string foldedTone
    required property string foldedHelp

    property bool expanded: false
    readonly property bool folded: folds && !expanded

    signal realIssue()
    signal markFine()
    signal chosen()

    implicitHeight: folded ? foldedRow.implicitHeight : open.implicitHeight

    onDecisionChanged: {
        if (decision !== "open")
            expanded = false;
    }

    Behavior on implicitHeight {
        Glide {}
    }

    Pressable {
        id: foldedRow

        visible: card.folded
        width: parent.width
        implicitHeight: 36
        radius: Theme.radiusRow
        label: card.title
        help: card.foldedHelp
        onClicked: card.expanded = true

        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusRow
            color: foldedRow.hovered ? Theme.trackFill : Theme.hoverFill
        }

        Symbol {
            id: verdict

            x: Theme.gap12
            anchors.verticalCenter: parent.verticalCenter
            size: 13
            name: card.foldedIcon
            color: Theme.fore[card.foldedTone]
        }

        Label {
            anchors.left: verdict.right
            anchors.leftMargin: Theme.gap8
            anchors.right: chevron.left
            anchors.rightMargin: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            text: card.title
            Accessible.ignored: true
        }

        Symbol {
            id: chevron

            anchors.right: parent.right
            anchors.rightMargin: Theme.gap12
            anchors.verticalCenter: parent.verticalCenter
            size: 10
            name: "chevron.right"
            color: Theme.faint
        }
    }

    Pressable {
        id: open

        visible: !card.folded
        width: parent.width
        implicitHeight: words.implicitHeight + 2 * Theme.gap12
        radius: Theme.radiusRow
        pressedScale: 1
        label: card.title
        Accessible.role: Accessible.ListItem
        Accessible.selectable: card.selectable
        Accessible.selected: card.selected
        onClicked: card.chosen()

        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusRow
            color: Theme.raised
            border.width: 1
            border.color: card.selected ? Theme.selectedLine : Theme.quietFill

            Rectangle {
                anchors.fill: parent
                radius: parent.radius
                color: Theme.selectedFill
                opacity: card.selected ? 1 : 0

                Behavior on opacity {
                    NumberAnimation { duration: Theme.hover }
                }
            }
        }

        Column {
            id: words

            x: Theme.gap12
            y: Theme.gap12
            width: parent.width - 2 * x
            spacing: Theme.gap4

            Row {
                spacing: 5

                Symbol {
                    visible: card.selected
                    anchors.verticalCenter: parent.verticalCenter
                    size: 11
                    name: "scope"
                    color: Theme.accent
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    size: Theme.small
                    color: Theme.faint
                    text: card.caption
                }
            }

            Label {
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.row
                weight: Font.DemiBold
                text: card.title
                Accessible.ignored: true
            }

            Label {
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.body
                color: Theme.muted
                text: card.detail
            }

            BeforeAfter {
                visible: card.wordings.length > 0
                topPadding: Theme.gap4
                bottomPadding: Theme.gap4
                width: parent.width
                wordings: card.wordings
            }

            Row {
                topPadding: Theme.gap4
                spacing: Theme.gap8

                StateButton {
                    title: "Real issue"
                    icon: "exclamationmark.triangle.fill"
                    on: card.issue
                    color: Theme.fore["red"]
                    enabled: !card.busy
                    onClicked: card.realIssue()
                }

                StateButton {
                    title: "Fine"
                    icon: "checkmark"
                    on: card.fine
                    color: Theme.fore["green"]
                    enabled: !card.busy
                    onClicked: card.markFine()
                }
            }

            Label {
                visible: text !== ""
                width: parent.width
                topPadding: 2
                size: Theme.small
                color: Theme.faint
                text: card.decided
            }
        }
    }
}
