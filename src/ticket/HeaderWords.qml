import QtQuick
import Vellix.Pieces
import Vellix.Ticket

// What is known of a ticket, and where it lies.
Column {
    id: words

    required property fileHeaderView header

    // Where the summary ends, and where the facts do.
    readonly property real told: summary.visible ? summary.y + summary.height : -spacing
    readonly property real known: facts.visible ? facts.y + facts.height : told

    // Where the summary's lines end but for the last, as its parent sees it.
    readonly property var lines: {
        const all = [];
        for (let i = 1; i < summary.lineCount; ++i)
            all.push(y + summary.y + summary.height * i / summary.lineCount);
        return all;
    }

    spacing: Theme.gap8

    Label {
        id: summary

        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.row
        color: Theme.muted
        text: words.header.summary
    }

    FlowRow {
        id: facts

        visible: tiles.count > 0
        width: parent.width
        height: implicitHeight
        spacing: Theme.gap24

        Repeater {
            id: tiles

            model: KeyedRows {
                by: "label"
                rows: words.header.facts
            }

            FactTile {
                required property var model

                label: model.value.label
                value: model.value.value
                widest: words.width
            }
        }
    }

    FlowRow {
        visible: links.count > 0
        width: parent.width
        height: implicitHeight
        spacing: Theme.gap8

        Repeater {
            id: links

            model: KeyedRows {
                by: "label"
                rows: words.header.links
            }

            LinkPill {
                required property linkView value

                title: value.label
                icon: value.icon
                url: value.url
                widest: Math.min(240, words.width)
            }
        }
    }
}
