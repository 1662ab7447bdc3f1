import QtQuick
import Vellix.Approval
import Vellix.Shell

// Asks for the PDF that is to be uploaded. The desktop's chooser is loaded when it is first wanted.
Item {
    id: chooser

    required property UploadModel upload

    function open() {
        dialog.active = true;
        (dialog.item as PdfDialog)?.open();
    }

    Loader {
        id: dialog

        active: false
        source: "PdfDialog.qml"
    }

    Connections {
        target: dialog.item

        function onChosen(file: url) {
            chooser.upload.choose(file);
        }
    }

    // For nobody, it asks no more.
    Connections {
        target: chooser.upload

        function onOpenChanged() {
            if (!chooser.upload.open)
                (dialog.item as PdfDialog)?.close();
        }
    }
}
