import QtQuick
import QtQuick.Dialogs

// The desktop's own chooser of a PDF; Qt's own where the desktop has none.
Item {
    id: chooser

    signal chosen(file: url)

    function open() {
        dialog.open();
    }

    function close() {
        dialog.close();
    }

    FileDialog {
        id: dialog

        title: "Pick the revised PDF. The low-res export is fine."
        nameFilters: ["PDF (*.pdf *.PDF)"]
        onAccepted: chooser.chosen(selectedFile)
    }
}
