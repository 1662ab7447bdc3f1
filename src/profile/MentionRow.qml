import QtQuick
import Vellix.Pictures
import Vellix.Pieces

// A note that the person is tagged in. It is pressed where its ticket is there.
ListRow {
    id: row

    required property int index
    required property string ticket
    required property avatarView avatar
    required property string who
    required property string text
    required property string when
    required property string where
    required property string spoken
    required property PictureSource pictures

    readonly property bool leads: ticket !== ""

    label: spoken
    ground: leads
    pressedScale: leads ? 0.985 : 1
    activeFocusOnTab: false
    implicitHeight: words.implicitHeight + 16

    Accessible.role: leads ? Accessible.Button : Accessible.ListItem

    Avatar {
        id: face

        x: Theme.gap8
        y: Theme.gap8
        who: row.avatar
        pictures: row.pictures
        size: 24
        Accessible.ignored: true
    }

    Column {
        id: words

        anchors.left: face.right
        anchors.leftMargin: Theme.gap12
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        y: Theme.gap8
        spacing: 2

        Item {
            width: parent.width
            implicitHeight: author.implicitHeight

            Label {
                id: author

                width: Math.min(implicitWidth, parent.width - time.width - Theme.gap8)
                size: Theme.body
                weight: Font.DemiBold
                tellsWhole: true
                text: row.who
                Accessible.ignored: true
            }

            Label {
                id: time

                anchors.right: parent.right
                anchors.baseline: author.baseline
                size: Theme.small
                color: Theme.faint
                text: row.when
                Accessible.ignored: true
            }
        }

        Label {
            width: parent.width
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            size: Theme.row
            tellsWhole: true
            text: row.text
            Accessible.ignored: true
        }

        Label {
            visible: text !== ""
            width: parent.width
            size: Theme.small
            color: Theme.faint
            tellsWhole: true
            text: row.where
            Accessible.ignored: true
        }
    }
}
