import QtQuick
import Vellix.Pictures
import Vellix.Pieces

// One event: who did what, when and where. It is pressed where it leads to a ticket.
ListRow {
    id: line

    required property string key
    required property avatarView avatar
    required property string who
    required property string said
    required property string when
    required property string where
    required property string spoken
    required property PictureSource pictures

    readonly property bool leads: where !== ""

    label: spoken
    implicitHeight: words.implicitHeight + 16
    pressedScale: leads ? 0.985 : 1
    ground: leads

    Accessible.role: leads ? Accessible.Button : Accessible.ListItem
    Accessible.description: where === "" ? when : when + " · " + where

    Avatar {
        id: face

        x: Theme.gap8
        y: Theme.gap8
        who: line.avatar
        pictures: line.pictures
        size: 20
        Accessible.ignored: true
    }

    Column {
        id: words

        anchors.left: face.right
        anchors.leftMargin: Theme.gap8
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        y: Theme.gap8
        spacing: 1

        // The sentence begins behind the name, and goes on below it.
        Label {
            id: sentence

            width: parent.width
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            lineHeight: 1  // as the name beside it
            tellsWhole: true
            size: Theme.body
            color: Theme.muted
            text: line.said
            Accessible.ignored: true
            onLineLaidOut: laid => {
                if (laid.number > 0 || name.taken === 0)
                    return;
                laid.x = name.taken;
                laid.width -= name.taken;
            }

            Label {
                id: name

                readonly property real taken: text === "" ? 0 : width + 4
                onTakenChanged: sentence.forceLayout()

                anchors.baseline: parent.baseline
                width: Math.min(Math.ceil(implicitWidth), parent.width * 0.6)
                size: Theme.body
                weight: Font.DemiBold
                text: line.who
                Accessible.ignored: true
            }
        }

        Label {
            width: parent.width
            size: Theme.small
            color: Theme.muted
            tellsWhole: true
            text: line.Accessible.description
            Accessible.ignored: true
        }
    }
}
