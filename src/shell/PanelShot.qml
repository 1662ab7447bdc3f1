import QtQuick
import Vellix.Approval
import Vellix.Pieces
import Vellix.Shell

// A sheet or the popover of the ticket on show, by itself.
Item {
    id: shot

    required property string which
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share

    readonly property bool here: approval.card.here

    function begin() {
        if (which === "send")
            send.begin();
        else if (which === "upload")
            upload.begin();
        else
            button.click();
    }

    // Once the window is there, which sheets open over.
    Timer {
        running: shot.here
        interval: 0
        onTriggered: shot.begin()
    }

    ApprovalSheets {
        anchors.fill: parent
        send: shot.send
        upload: shot.upload
        onChoosing: chooser.open()
    }

    PdfChooser {
        id: chooser

        upload: shot.upload
    }

    ShareButton {
        id: button

        visible: shot.here && shot.which === "share"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.gap24
        share: shot.share
    }

    Column {
        visible: !shot.here
        anchors.centerIn: parent
        spacing: Theme.gap12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 32
            name: "doc.questionmark"
            color: Theme.faint
        }

        Label {
            size: Theme.lead
            color: Theme.muted
            text: "Pick a file with --file"
        }
    }
}
