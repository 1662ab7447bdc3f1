import QtQuick
import Vellix.Pieces

// One line of the panel that leads to more: an icon, words, a count behind them, and a chevron that
// points down once the more is `open`.
Pressable {
    id: row

    property string icon: ""
    property color iconColor: Theme.muted
    property string text: ""
    property string count: ""
    property string countIcon: ""
    property string countSpoken: count
    property bool open: false
    property bool waits: false
    property bool framed: true
    // The pointer is on what else stands for the row.
    property bool pointed: false

    readonly property bool lit: hovered || pointed

    label: text
    implicitHeight: framed ? 36 : 30
    radius: framed ? Theme.radiusRow : Theme.radiusControl

    Rectangle {
        anchors.fill: parent
        radius: row.radius
        color: row.framed && row.lit ? Theme.trackFill : Theme.hoverFill
        opacity: row.framed || row.lit ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Symbol {
        id: mark

        visible: row.icon !== ""
        opacity: spinner.shown ? 0 : 1
        x: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
        size: 13
        name: row.icon
        color: row.iconColor
    }

    LateSpinner {
        id: spinner

        anchors.centerIn: mark
        waits: row.waits
    }

    Label {
        anchors.left: mark.visible ? mark.right : parent.left
        anchors.leftMargin: Theme.gap8
        anchors.right: behind.left
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        text: row.text
        Accessible.ignored: true
    }

    Row {
        id: behind

        anchors.right: chevron.left
        anchors.rightMargin: row.count === "" ? 0 : Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Symbol {
            visible: row.countIcon !== "" && row.count !== ""
            anchors.verticalCenter: parent.verticalCenter
            size: 11
            name: row.countIcon
            color: Theme.muted
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.small
            color: row.countIcon === "" ? Theme.faint : Theme.muted
            text: row.count
            Accessible.name: row.countSpoken
        }
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: row.framed ? Theme.gap12 : Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: 10
        name: "chevron.right"
        color: Theme.faint
        rotation: row.open ? 90 : 0

        Behavior on rotation {
            Glide {}
        }
    }
}
