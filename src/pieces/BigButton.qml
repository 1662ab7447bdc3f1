import QtQuick
import Vellix.Pieces

// The main action of its place, as wide as it. While busy a spinner takes the icon's place and
// presses do nothing. `prominent` fills it with the accent.
Pressable {
    id: button

    required property string title
    property string icon: ""
    property bool busy: false
    property bool disabled: false
    property bool prominent: false

    signal action()

    readonly property color ink: prominent ? Theme.onAccent : Theme.text

    label: title
    radius: Theme.radiusRow
    implicitWidth: Math.ceil(row.implicitWidth) + 32
    implicitHeight: 36
    enabled: !disabled
    idle: busy
    pressedScale: busy ? 1 : 0.97

    onClicked: {
        if (!busy)
            action();
    }

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: button.prominent ? Theme.underWhite(Theme.accent) : Theme.raised
        border.width: button.prominent ? 0 : 1
        border.color: Theme.quietFill
    }

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: button.prominent ? Theme.hoverShade : Theme.hoverFill
        opacity: button.hovered && !button.busy ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 8

        Item {
            visible: button.icon !== "" || button.busy
            anchors.verticalCenter: parent.verticalCenter
            implicitWidth: 14
            implicitHeight: 14

            Symbol {
                anchors.fill: parent
                visible: !button.busy
                name: button.icon
                color: button.ink
            }

            Spinner {
                visible: button.busy
                color: button.ink
            }
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.lead
            weight: Font.DemiBold
            color: button.ink
            text: button.title
            Accessible.ignored: true
        }
    }
}
