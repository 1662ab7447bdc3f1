import QtQuick
import Vellix.Pieces

// A field between two buttons that lead to what is before and behind what it shows.
Rectangle {
    id: frame

    required property string earlierHelp
    required property string laterHelp
    property bool earlier: true
    property bool later: true
    default property alias content: row.data

    signal stepped(int by)

    implicitWidth: row.implicitWidth + 2 * before.width + 2 * 3
    implicitHeight: 30
    radius: 8
    color: Theme.trackFill

    // The fields take the arrow keys, so that these stay out of Tab's way.
    IconButton {
        id: before

        x: 3
        anchors.verticalCenter: parent.verticalCenter
        activeFocusOnTab: false
        size: 12
        symbol: "chevron.left"
        help: frame.earlierHelp
        enabled: frame.earlier
        onClicked: frame.stepped(-1)
    }

    Row {
        id: row

        x: before.x + before.width
        width: behind.x - x
        height: parent.height
    }

    IconButton {
        id: behind

        anchors.right: parent.right
        anchors.rightMargin: 3
        anchors.verticalCenter: parent.verticalCenter
        activeFocusOnTab: false
        size: 12
        symbol: "chevron.right"
        help: frame.laterHelp
        enabled: frame.later
        onClicked: frame.stepped(1)
    }
}
