import QtQuick
import Vellix.Pieces

// What was checked against what, and the finding in a few words: on two lines, or briefly on one.
Item {
    id: header

    required property string caption
    required property string title
    required property bool selected
    required property bool brief

    implicitHeight: brief ? line.implicitHeight : line.implicitHeight + whole.implicitHeight + 4

    Row {
        id: line

        width: parent.width
        spacing: 5

        Symbol {
            id: scope

            visible: header.selected
            anchors.verticalCenter: parent.verticalCenter
            size: 11
            name: "scope"
            color: Theme.accent
        }

        Label {
            id: words

            width: Math.min(implicitWidth, header.brief ? parent.width * 0.6
                                                        : parent.width - (scope.visible ? 16 : 0))
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.small
            color: Theme.faint
            tellsWhole: true
            text: header.caption
        }

        Label {
            visible: header.brief
            width: Math.max(0, parent.width - words.width - parent.spacing)
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            tellsWhole: true
            text: header.title
            Accessible.ignored: true
        }
    }

    Label {
        id: whole

        visible: !header.brief
        y: line.implicitHeight + 4
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.row
        weight: Font.DemiBold
        text: header.title
        Accessible.ignored: true
    }
}
