pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// Opens the activity feed, which a command of the menus opens and closes as well.
IconButton {
    id: button

    required property ActivityModel activity
    required property PictureSource pictures

    // A window is needed to open in: a view may be made before it has one.
    readonly property bool wanted: activity.open && Window.window !== null

    function follow() {
        if (wanted)
            (feed.made() as ActivityView)?.openAt(visualFocus);
        else
            (feed.object as ActivityView)?.close();
    }

    symbol: "clock.arrow.circlepath"
    help: "Activity: who did what"
    checked: activity.open
    expandable: true
    expanded: checked

    onClicked: activity.open = !activity.open
    onWantedChanged: follow()
    Component.onCompleted: follow()
    Component.onDestruction: activity.open = false

    OnDemand {
        id: feed

        ActivityView {
            parent: button
            activity: button.activity
            pictures: button.pictures
            // Closed by whatever means.
            onAboutToHide: button.activity.open = false
        }
    }
}
