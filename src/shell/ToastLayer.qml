import QtQuick
import Vellix.Pieces

// Shows the toast at the foot of the window, and keeps its words while it goes.
Item {
    id: layer

    required property var toast

    signal undo()

    readonly property bool open: toast.id !== ""
    property string words: ""
    property string label: ""

    onToastChanged: {
        // Not `open`, which may still hold the answer for the toast before.
        if (toast.id === "")
            return;
        words = toast.text;
        label = toast.undoLabel;
    }

    ToastView {
        id: shown

        anchors.horizontalCenter: parent.horizontalCenter
        y: layer.height - height - (layer.open ? 62 : 46)
        visible: opacity > 0
        opacity: layer.open ? 1 : 0
        widest: Math.min(560, layer.width - 2 * Theme.gap24)
        text: layer.words
        undoLabel: layer.label
        onUndo: layer.undo()

        Behavior on opacity {
            Glide {}
        }
        Behavior on y {
            Glide {}
        }
    }
}
