import QtQuick
import Vellix.Pieces

// A scroll bar of the stage, which stays for as long as that scrolls.
ScrollBar {
    stays: true
    visible: view.interactive && shown < 1

    HoverHandler {
        cursorShape: Qt.ArrowCursor
    }
}
