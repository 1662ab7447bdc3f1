import QtQuick
import Vellix.Pieces

// The strip that says the last poll failed.
Rectangle {
    id: banner

    required property bool open
    required property string problem

    height: open ? words.implicitHeight + 2 * Theme.gap8 : 0
    visible: height > 0
    clip: true
    color: Theme.tint.amber

    Accessible.role: Accessible.AlertMessage
    Accessible.name: problem

    onProblemChanged: {
        if (problem !== "")
            announcement.renew();
    }

    Announcement {
        id: announcement

        alert: banner
    }

    Behavior on height {
        Glide {}
    }

    Symbol {
        id: mark

        x: Theme.gap16
        anchors.verticalCenter: parent.verticalCenter
        size: 14
        name: "wifi.exclamationmark"
        color: Theme.strong.amber
    }

    Flow {
        id: words

        anchors.left: mark.right
        anchors.leftMargin: Theme.gap8
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap16
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.gap8

        Label {
            width: Math.min(implicitWidth, parent.width)
            wrapMode: Text.Wrap
            // The service's own words may be many.
            maximumLineCount: 3
            elide: Text.ElideRight
            tellsWhole: true
            size: Theme.body
            weight: Font.Medium
            text: banner.problem
        }

        Label {
            width: Math.min(implicitWidth, parent.width)
            // Its lines are as high as those beside it.
            wrapMode: Text.Wrap
            size: Theme.body
            color: Theme.faint
            text: "What's here stays. It tries again on its own."
        }
    }
}
