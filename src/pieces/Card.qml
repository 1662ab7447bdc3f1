import QtQuick
import Vellix.Pieces

// A title line and content on a rounded ground. The content is laid out below one another.
Rectangle {
    id: card

    property string title: ""
    property real padding: Theme.gap16
    property alias spacing: content.spacing
    default property alias content: content.data

    implicitWidth: Math.max(heading.implicitWidth, content.implicitWidth) + 2 * padding
    implicitHeight: content.y + content.implicitHeight + padding
    radius: Theme.radiusCard
    color: Theme.raised
    border.width: 1
    border.color: Theme.quietFill

    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Label {
        id: heading

        visible: text !== ""
        x: card.padding
        y: card.padding
        width: card.width - 2 * card.padding
        size: Theme.row
        weight: Font.DemiBold
        text: card.title
        Accessible.role: Accessible.Heading
    }

    Column {
        id: content

        x: card.padding
        y: card.padding + (heading.visible ? heading.implicitHeight + Theme.gap12 : 0)
        width: card.width - 2 * card.padding
        spacing: Theme.gap8
    }
}
