import QtQuick
import Vellix.Board
import Vellix.Pieces

// How fresh the board is, and the button that refreshes it. In less than `room` for its words the
// symbol stands alone and the words become its help.
Pressable {
    id: dot

    required property BoardModel board
    required property real room

    readonly property liveDotView shown: board.liveDot
    readonly property bool narrow: words.implicitWidth > room

    label: shown.text
    help: narrow ? shown.text : shown.help
    Accessible.description: shown.help
    radius: height / 2
    implicitWidth: Math.max(24, narrow ? symbol.implicitWidth : words.implicitWidth)
    // Higher than it looks, for the hand.
    implicitHeight: Math.max(24, words.implicitHeight)

    onClicked: board.refresh()

    Pillbox {
        id: words

        visible: !dot.narrow
        anchors.verticalCenter: parent.verticalCenter
        small: true
        text: dot.shown.text
        icon: dot.shown.icon
        tone: dot.shown.tone
        spinning: dot.shown.spinning
        Accessible.ignored: true
    }

    Pillbox {
        id: symbol

        visible: dot.narrow
        anchors.verticalCenter: parent.verticalCenter
        height: words.implicitHeight
        small: true
        icon: dot.shown.icon
        tone: dot.shown.tone
        spinning: dot.shown.spinning
        Accessible.ignored: true
    }

    Rectangle {
        anchors.fill: dot.narrow ? symbol : words
        radius: height / 2
        color: Theme.text
        opacity: dot.hovered ? 0.05 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }
}
