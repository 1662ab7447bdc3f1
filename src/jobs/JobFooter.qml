import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// Who began a job and when, and the button that stops it.
Item {
    id: footer

    required property jobBlockView job

    signal stopped()

    implicitHeight: stop.implicitHeight

    Label {
        anchors.left: parent.left
        anchors.right: stop.left
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        tellsWhole: true
        size: Theme.small
        color: Theme.muted
        text: footer.job.footer
    }

    TextButton {
        id: stop

        anchors.right: parent.right
        says: footer.job.key
        enabled: !footer.job.stopping
        text: "Stop"
        size: Theme.note
        color: Theme.strong.red
        onClicked: footer.stopped()
    }
}
