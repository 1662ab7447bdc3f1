import QtQuick
import Vellix.Pieces

// A headline and a line in the middle of the room, or a spinner and a line while it loads.
Item {
    id: plain

    required property bool loading
    required property string headline
    required property string line

    Column {
        anchors.centerIn: parent
        width: Math.min(420, plain.width - 2 * Theme.gap24)
        spacing: Theme.gap8

        Spinner {
            visible: plain.loading
            anchors.horizontalCenter: parent.horizontalCenter
            size: 18
        }

        CentredLabel {
            visible: text !== ""
            width: parent.width
            size: Theme.title
            weight: Font.DemiBold
            text: plain.headline
            Accessible.role: Accessible.Heading
        }

        CentredLabel {
            width: parent.width
            maximumLineCount: 6
            size: Theme.lead
            color: Theme.muted
            text: plain.line
        }
    }
}
