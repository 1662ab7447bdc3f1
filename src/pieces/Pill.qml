import QtQuick
import Vellix.Pieces

// A small capsule button: filled with its colour, raised on the ground, or tinted. While busy a
// spinner takes the icon's place.
Pressable {
    id: pill

    required property string title
    property string icon: ""
    property color color: Theme.text
    property bool filled: false
    property bool raised: false
    property bool busy: false
    property real widest: Infinity

    readonly property color ink: filled ? Theme.onAccent : color

    label: title
    idle: busy
    radius: height / 2
    implicitWidth: Math.ceil(row.implicitWidth) + 24
    implicitHeight: 26

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: pill.filled ? Theme.underWhite(pill.color) : pill.raised ? Theme.raised : Qt.alpha(pill.color, 0.11)
        border.width: pill.raised && !pill.filled ? 1 : 0
        border.color: Theme.quietFill
    }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: pill.filled ? Theme.hoverShade : Theme.text
        opacity: pill.hovered ? (pill.filled ? 1 : 0.05) : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            id: mark

            visible: pill.icon !== "" && !pill.busy
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            name: pill.icon
            color: pill.ink
        }

        Spinner {
            visible: pill.busy
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            color: pill.ink
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth),
                            pill.widest - 24 - (pill.icon !== "" || pill.busy ? mark.width + row.spacing : 0))
            tellsWhole: true
            size: Theme.body
            weight: pill.filled ? Font.DemiBold : Font.Medium
            color: pill.ink
            text: pill.title
            Accessible.ignored: true
        }
    }
}
