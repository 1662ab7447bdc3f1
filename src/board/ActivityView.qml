pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// Who did what, the newest first. A poll that brings more leaves the scrolling and the focus alone.
Popover {
    id: popover

    required property ActivityModel activity
    required property PictureSource pictures

    // The keyboard goes to the line of this number, or to the nearest that there is.
    function go(to: int) {
        const index = Math.max(0, Math.min(to, events.count - 1));
        if (events.count === 0)
            return;
        events.positionViewAtIndex(index, ListView.Contain);
        // Before it is the current one, which would give it the focus without the ring.
        events.itemAtIndex(index).forceActiveFocus(Qt.TabFocusReason);
        events.currentIndex = index;
    }

    onAboutToShow: {
        events.currentIndex = 0;
        events.positionViewAtBeginning();
    }

    width: 360
    height: 460
    padding: 0
    topPadding: Theme.gap16
    y: -height - Theme.gap4
    label: "Activity"
    first: events

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popover.label

        Keys.onDownPressed: popover.go(events.currentIndex)
        Keys.onUpPressed: popover.go(events.currentIndex)

        ListKeys {
            id: keys
        }

        // What opens it closes it, and opens it again while it fades: the window's own shortcuts rest
        // as long as it can be seen. Afterwards this one would stand in their way.
        Shortcut {
            sequence: "Ctrl+Y"
            // Not behind what covers it.
            enabled: popover.visible && popover.contentItem.visible
            autoRepeat: false
            onActivated: popover.activity.open = !popover.activity.open
        }

        Label {
            id: heading

            x: Theme.gap16
            size: Theme.title
            weight: Font.Bold
            text: "Activity"
            Accessible.role: Accessible.Heading
        }

        ListView {
            id: events

            anchors.top: heading.bottom
            anchors.topMargin: Theme.gap8
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 1
            width: parent.width
            leftMargin: Theme.gap8
            rightMargin: Theme.gap8
            topMargin: 4
            bottomMargin: Theme.gap8
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: popover.activity.rows
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            // One stop in Tab's way; its current line has the keyboard.
            activeFocusOnTab: true

            // Who is at the newest sees what is newer still.
            Connections {
                property bool follows: false

                target: popover.activity.rows

                function onRowsAboutToBeInserted() {
                    follows = events.atYBeginning && !events.activeFocus;
                }
                function onRowsInserted() {
                    if (follows)
                        events.positionViewAtBeginning();
                }
            }

            Accessible.role: Accessible.List
            Accessible.name: "Activity"

            delegate: ActivityLine {
                required property int index

                width: events.width - events.leftMargin - events.rightMargin
                pictures: popover.pictures
                activeFocusOnTab: false
                onClicked: popover.activity.choose(key)
                Keys.onPressed: event => {
                    const page = Math.max(1, Math.floor(events.height / height) - 1);
                    const by = keys.by(event.key, 1, page, events.count);
                    event.accepted = by !== 0;
                    if (event.accepted)
                        popover.go(index + by);
                }
            }
        }

        ScrollBar {
            view: events
        }
    }
}
