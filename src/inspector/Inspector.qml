pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Inspector
import Vellix.Pieces

// The panel beside the page: what was found on it, and what waits on other pages.
Item {
    id: panel

    required property InspectorModel inspector

    readonly property var head: inspector.head
    // Another page's findings begin at their top.
    readonly property string place: head.file + " " + head.title

    onPlaceChanged: scroll.contentY = 0

    Accessible.role: Accessible.Pane
    Accessible.name: "Findings"

    Flickable {
        id: scroll

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: content.implicitHeight

        Column {
            id: content

            x: Theme.gap16
            width: scroll.width - 2 * x
            topPadding: Theme.gap16
            bottomPadding: Theme.gap24
            spacing: Theme.gap8

            Column {
                width: parent.width
                bottomPadding: Theme.gap4
                spacing: 2

                Label {
                    width: parent.width
                    size: Theme.title
                    weight: Font.Bold
                    text: panel.head.title
                    Accessible.role: Accessible.Heading
                }

                Label {
                    size: Theme.note
                    color: Theme.faint
                    text: panel.head.found
                }
            }

            Label {
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.note
                color: Theme.fore["amber"]
                text: panel.head.notice
            }

            Column {
                visible: panel.head.calm !== ""
                width: parent.width
                topPadding: Theme.gap8
                bottomPadding: Theme.gap8
                spacing: Theme.gap4

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.row
                    weight: Font.DemiBold
                    text: panel.head.calm
                }

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.body
                    color: Theme.muted
                    text: panel.head.calmReason
                }
            }

            Repeater {
                model: panel.inspector.cards

                FindingCard {
                    width: content.width
                    onRealIssue: panel.inspector.realIssue(id)
                    onMarkFine: panel.inspector.fine(id)
                    onChosen: panel.inspector.press(id)
                }
            }

            Label {
                visible: others.count > 0
                topPadding: Theme.gap12
                size: Theme.note
                weight: Font.DemiBold
                color: Theme.muted
                text: "Still open on other pages"
                Accessible.role: Accessible.Heading
            }

            Repeater {
                id: others

                model: panel.inspector.others

                OtherPageRow {
                    required property var page

                    width: content.width
                    onClicked: panel.inspector.goToPage(page)
                }
            }
        }
    }

    ScrollBar {
        view: scroll
    }
}
