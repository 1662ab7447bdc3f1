import QtQuick
import Vellix.Approval
import Vellix.Pieces

// Uploads a revision: a PDF, and a line on what changed. It closes before it sends anything.
Sheet {
    id: sheet

    required property UploadModel upload

    readonly property uploadSheetView view: upload.sheet

    // A file is to be chosen, and given to the model.
    signal choosing()

    function begin() {
        line.text = "";
        open();
    }

    label: view.title
    first: line.field
    confirm: "Upload"
    confirmIcon: "arrow.up.doc"
    canConfirm: view.canUpload
    says: view.title
    trouble: view.trouble
    onConfirmed: upload.upload()
    onAboutToHide: upload.end()

    Label {
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: sheet.view.intro
    }

    Rectangle {
        width: parent.width
        height: 56
        radius: Theme.radiusRow
        color: Theme.well

        Symbol {
            id: icon

            x: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            size: 20
            name: sheet.view.icon
            color: sheet.view.chosen ? Theme.accent : Theme.muted
        }

        Label {
            anchors.left: icon.right
            anchors.leftMargin: Theme.gap12
            anchors.right: choose.left
            anchors.rightMargin: Theme.gap12
            anchors.verticalCenter: parent.verticalCenter
            elide: Text.ElideMiddle
            size: Theme.body
            weight: sheet.view.chosen ? Font.Medium : Font.Normal
            color: sheet.view.chosen ? Theme.text : Theme.muted
            tellsWhole: true
            text: sheet.view.file
        }

        Pill {
            id: choose

            anchors.right: parent.right
            anchors.rightMargin: Theme.gap12
            anchors.verticalCenter: parent.verticalCenter
            raised: true
            title: sheet.view.choose
            onClicked: sheet.choosing()
        }
    }

    SectionTitle {
        text: "WHAT CHANGED"
    }

    TextField {
        id: line

        width: parent.width
        label: "What changed"
        placeholder: "Fixed the p25 headline font. Nothing else moved."
        onTextChanged: {
            sheet.upload.note = line.text;
            sheet.written();
        }
        onConfirmed: sheet.pressByKey()
    }

    Label {
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.note
        color: Theme.faint
        text: "Approvers see this line on the new version."
    }
}
