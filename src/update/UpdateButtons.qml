import QtQuick
import Vellix.Pieces
import Vellix.Update

// What can be done about an update that failed.
Row {
    id: buttons

    required property UpdateModel update
    // What they were seen to be about.
    required property var says

    spacing: Theme.gap8

    Pill {
        title: "Try again"
        filled: true
        color: Theme.accent
        says: buttons.says
        onClicked: buttons.update.install()
    }

    Pill {
        title: "Download"
        raised: true
        says: buttons.says
        onClicked: buttons.update.download()
    }
}
