import QtQuick
import Vellix.Pieces

// The help shown under what the pointer rests on, kept inside the window.
Rectangle {
    id: bubble

    required property string text
    // The rectangle it belongs to, in the window's coordinates.
    required property rect target

    readonly property real below: target.y + target.height + 6

    z: 10000
    x: parent ? Math.round(Math.max(6, Math.min(parent.width - width - 6,
                                               target.x + target.width / 2 - width / 2))) : 0
    y: parent && below + height > parent.height - 6 ? Math.round(target.y - height - 6)
                                                    : Math.round(below)
    width: Math.ceil(words.width) + 16
    height: words.implicitHeight + 10
    radius: Theme.radiusControl
    color: Theme.toast
    Accessible.ignored: true

    Shadow {
        anchors.fill: parent
        z: -1
        radius: bubble.radius
        blur: 12
        drop: 3
        color: Theme.shadow
    }

    Label {
        id: words

        x: 8
        y: 5
        width: Math.min(Math.ceil(implicitWidth), 320)
        wrapMode: Text.Wrap
        // More is no help, and would reach out of the window.
        maximumLineCount: 12
        elide: Text.ElideRight
        lineHeight: 1.2
        size: Theme.small
        color: Theme.onToast
        text: bubble.text
        Accessible.ignored: true
    }
}
