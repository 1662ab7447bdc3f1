import QtQuick
import QtQuick.Dialogs

// The desktop's own chooser of a file; Qt's own where the desktop has none.
Item {
    id: chooser

    signal chosen(file: url)

    // Filters are names of kinds with their patterns.
    function ask(title: string, filters: var) {
        dialog.title = title;
        dialog.nameFilters = filters;
        dialog.open();
    }

    function close() {
        dialog.close();
    }

    FileDialog {
        id: dialog

        onAccepted: chooser.chosen(selectedFile)
    }
}
