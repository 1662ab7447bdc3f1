import QtQuick
import Vellix.Pieces

// A capsule with a number or a few words: tinted with its colour, or filled with white digits.
Rectangle {
    id: badge

    required property string text
    property color colour: Theme.accent
    property string icon: ""
    property bool filled: false
    property bool small: false
    // Stands out from its like, and not by its colour alone.
    property bool outlined: false
    property string help: ""
    // On a ground that would take from the digits.
    property bool bedded: false

    readonly property color ink: filled ? Theme.onAccent : colour
    readonly property real side: small ? 14 : 18

    implicitWidth: Math.max(side, Math.ceil(row.implicitWidth) + (small ? 8 : 11))
    implicitHeight: side
    radius: height / 2
    border.width: outlined ? 1 : 0
    border.color: colour
    color: filled ? Theme.underWhite(colour) : Qt.alpha(colour, colour.a * 0.14)

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.description: help

    Rectangle {
        visible: badge.bedded
        z: -1
        anchors.fill: parent
        radius: badge.radius
        color: Theme.pillBed
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 2

        Symbol {
            visible: badge.icon !== ""
            anchors.verticalCenter: parent.verticalCenter
            size: badge.small ? 8.5 : 10
            name: badge.icon
            color: badge.ink
        }

        Digits {
            anchors.verticalCenter: parent.verticalCenter
            size: badge.small ? 9.5 : Theme.tiny
            weight: badge.filled ? Font.Bold : Font.DemiBold
            color: badge.ink
            text: badge.text
            Accessible.ignored: true
        }
    }

    ToolTipArea {
        anchors.fill: parent
        text: badge.help
    }
}
