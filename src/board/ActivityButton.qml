// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
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
        if (!wanted)
            return place.item?.close();
        if (place.item)
            place.item.openAt(visualFocus);
        else
            place.setSource("ActivityView.qml", { parent: button, activity: activity, pictures: pictures });
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

    Loader {
        id: place

        onLoaded: button.follow()
    }

    // Closed by whatever means.
    Connections {
        target: place.item

        function onAboutToHide() {
            button.activity.open = false;
        }
    }
}
