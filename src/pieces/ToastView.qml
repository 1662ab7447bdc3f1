import QtQuick
import Vellix.Pieces

// A capsule with a message and, when it can be taken back, a button that asks for it.
Rectangle {
    id: toast

    required property string text
    required property string undoLabel
    property real widest: 560

    signal undo()

    readonly property bool offers: undoLabel !== ""

    implicitWidth: Math.ceil(words.x + words.width + (offers ? 14 + button.width + 10 : 20))
    implicitHeight: Math.max(42, words.implicitHeight + 18)
    radius: Math.min(height / 2, 21)
    color: Theme.toast

    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Shadow {
        anchors.fill: parent
        z: -1
        radius: toast.radius
        color: Theme.shadow
    }

    Ground {
        anchors.fill: parent
    }

    Label {
        id: words

        readonly property real room: toast.widest - x - (toast.offers ? button.width + 24 : 20)

        x: 20
        width: Math.min(Math.ceil(implicitWidth), room)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.row
        // Not by its width, which is still that of the text before while another is laid out.
        wrapMode: implicitWidth > room ? Text.Wrap : Text.NoWrap
        maximumLineCount: 4
        // Whether it wraps follows from how wide it is.
        most: Theme.mostOnALine * maximumLineCount
        color: Theme.onToast
        text: toast.text
        Accessible.ignored: true
    }

    Pressable {
        id: button

        visible: toast.offers
        x: words.x + words.width + 14
        anchors.verticalCenter: parent.verticalCenter
        width: Math.ceil(undoWords.implicitWidth) + 22
        height: 24
        radius: 12
        label: toast.undoLabel
        help: label + Theme.keys(" (⌘Z)")
        onClicked: toast.undo()

        Rectangle {
            anchors.fill: parent
            radius: 12
            color: Theme.toastButton
        }

        Rectangle {
            anchors.fill: parent
            radius: 12
            color: Theme.toastButton
            opacity: button.hovered ? 1 : 0

            Behavior on opacity {
                NumberAnimation { duration: Theme.hover }
            }
        }

        Label {
            id: undoWords

            anchors.centerIn: parent
            size: Theme.body
            weight: Font.DemiBold
            color: Theme.onToast
            text: toast.undoLabel
            Accessible.ignored: true
        }
    }
}
