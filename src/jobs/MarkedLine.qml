import QtQuick
import Vellix.Pieces

// A text behind a symbol, or behind a spinner, which stands beside its first line.
Item {
    id: line

    required property string text
    property string icon: ""
    property color ink: Theme.muted
    property bool spins: false
    property real markSize: 11
    property real size: Theme.body
    property color color: Theme.text

    implicitHeight: words.implicitHeight

    Accessible.role: Accessible.ListItem
    Accessible.name: text

    FontMetrics {
        id: metrics

        font: words.font
    }

    Symbol {
        visible: !line.spins
        y: (metrics.height - height) / 2
        size: line.markSize
        name: line.icon
        color: line.ink
    }

    Spinner {
        visible: line.spins
        x: (line.markSize - width) / 2
        y: (metrics.height - height) / 2
        size: 10
        color: Theme.accent
    }

    Label {
        id: words

        x: line.markSize + 7
        width: line.width - x
        wrapMode: Text.Wrap
        lineHeight: 1.2
        size: line.size
        color: line.color
        text: line.text
        Accessible.ignored: true
    }
}
