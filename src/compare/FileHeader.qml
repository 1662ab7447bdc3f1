import QtQuick
import Vellix.Pieces

// Which ticket this is. `header` is a FileHeaderView.
Column {
    id: head

    required property var header

    topPadding: Theme.gap12
    bottomPadding: Theme.gap12
    leftPadding: Theme.gap24
    rightPadding: Theme.gap24
    spacing: Theme.gap4

    Flow {
        width: parent.width - parent.leftPadding - parent.rightPadding
        spacing: Theme.gap8

        Label {
            width: Math.min(implicitWidth, parent.width)
            size: Theme.title
            weight: Font.Bold
            tellsWhole: true
            text: head.header.heading
            Accessible.role: Accessible.Heading
        }

        Item {
            width: pills.implicitWidth
            height: 25

            Row {
                id: pills

                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.gap8

                StatusPill {
                    small: true
                    pill: head.header.status
                }

                TrackPill {
                    small: true
                    pill: head.header.track
                }
            }
        }
    }

    Label {
        visible: text !== ""
        width: parent.width - parent.leftPadding - parent.rightPadding
        wrapMode: Text.Wrap
        maximumLineCount: 3
        size: Theme.row
        color: Theme.muted
        text: head.header.summary
    }
}
