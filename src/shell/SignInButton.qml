import QtQuick
import Vellix.Pieces

// Starts the sign-in. While it works a spinner takes the letter mark's place and presses do nothing.
Pressable {
    id: button

    required property string title
    required property bool working
    // A blank that is typed presses nothing, unless the keyboard was led here.
    property bool wary: false

    signal action()

    label: title
    idle: working
    radius: Theme.radiusRow
    implicitWidth: 264
    implicitHeight: 44
    pressedScale: working ? 1 : 0.97

    onClicked: {
        if (!working)
            action();
    }

    Keys.onSpacePressed: event => event.accepted = wary && !visualFocus
    // There may be nowhere else to go: it shows where the keyboard is.
    Keys.onTabPressed: event => {
        event.accepted = !visualFocus;
        if (event.accepted) {
            focus = false;
            forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Shadow {
        anchors.fill: parent
        radius: button.radius
        blur: 10
        drop: 2
        color: Qt.alpha(Theme.shadow, 0.08)
    }

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: Theme.raised
        border.width: 1
        border.color: Theme.quietFill
    }

    Rectangle {
        anchors.fill: parent
        radius: button.radius
        color: Theme.hoverFill
        opacity: button.hovered && !button.working ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Row {
        anchors.centerIn: parent
        spacing: 10

        Item {
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18

            GoogleG {
                anchors.fill: parent
                visible: !button.working
            }

            Spinner {
                anchors.centerIn: parent
                visible: button.working
                size: 16
            }
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.large
            weight: Font.DemiBold
            text: button.title
            Accessible.ignored: true
        }
    }
}
