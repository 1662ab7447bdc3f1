import QtQuick
import Vellix.Shell

// Asks for a file of the person's. The desktop's chooser is loaded when it is first wanted.
Item {
    id: chooser

    property string title
    // A list of the names of kinds with their patterns.
    property var filters: []

    signal chosen(file: url)

    function open() {
        ask(filters);
    }

    function ask(kinds: var) {
        dialog.active = true;
        (dialog.item as FileChooserDialog)?.ask(title, kinds);
    }

    // With what covers it.
    onVisibleChanged: {
        if (!visible)
            close();
    }

    function close() {
        (dialog.item as FileChooserDialog)?.close();
    }

    Loader {
        id: dialog

        active: false
        source: "FileChooserDialog.qml"
    }

    Connections {
        target: dialog.item

        function onChosen(file: url) {
            chooser.chosen(file);
        }
    }
}
