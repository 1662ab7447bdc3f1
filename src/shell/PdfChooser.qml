import QtQuick
import Vellix.Approval
import Vellix.Shell

// Asks for the PDF that is to be uploaded.
FileChooser {
    id: chooser

    required property UploadModel upload

    title: "Pick the revised PDF. The low-res export is fine."
    filters: ["PDF (*.pdf *.PDF)"]
    onChosen: file => upload.choose(file)

    // For nobody, it asks no more.
    Connections {
        target: chooser.upload

        function onOpenChanged() {
            if (!chooser.upload.open)
                chooser.close();
        }
    }
}
