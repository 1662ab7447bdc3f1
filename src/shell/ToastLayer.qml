import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces
import Vellix.Shell

// Shows the toast over the foot of the main column, and keeps its words while it goes.
Item {
    id: layer

    required property toastShown toast
    // What the main column has at its left, and what stands at its foot.
    property real aside: 0
    property real foot: 0
    // What it leaves free at the trailing edge.
    property real beside: 0

    signal undo()
    // The toast goes with the keyboard, and what had that before has gone.
    signal keptOut()

    property bool open: false
    property string words: ""
    property string label: ""

    // Where sheets and popovers are.
    readonly property Item floats: open || shown.visible ? T.Overlay.overlay : null

    // While there are any, it is seen over these, too.
    function rise() {
        const any = Array.from(floats?.children ?? []).some(each => each !== shown);
        shown.parent = any ? floats : layer;
    }

    function giveBack() {
        if (hold.inside && !before.giveBack(Qt.TabFocusReason))
            keptOut();
    }

    function takeBack() {
        giveBack();
        undo();
    }

    onFloatsChanged: rise()
    onToastChanged: {
        if (toast.undoLabel === "")
            giveBack();
        if (toast.id !== "") {
            words = toast.text;
            label = toast.undoLabel;
            announcement.renew();
        }
        // Last, so that it comes into sight with its own words.
        open = toast.id !== "";
    }

    Connections {
        target: layer.floats

        function onChildrenChanged() {
            rising.restart();
        }
    }

    // Once all that comes or goes with it has come or gone.
    Timer {
        id: rising

        interval: 0
        onTriggered: layer.rise()
    }

    CameFrom {
        id: before
    }

    KeyboardHold {
        id: hold

        around: shown
        onKeyedChanged: {
            if (keyed && !inside)
                before.note(keyed);
        }
    }

    Announcement {
        id: announcement

        alert: shown
    }

    // A toast is soon gone: there is no time to walk to its button.
    Shortcut {
        sequence: "Ctrl+Z"
        // Held down in a text, it ends with the text.
        autoRepeat: false
        // Not behind what covers it.
        enabled: layer.visible && layer.open && layer.toast.undoLabel !== ""
        onActivated: layer.takeBack()
    }

    ToastView {
        id: shown

        // From the window's foot; nothing jumps where what stands there grows.
        property real rise: Math.max(62, layer.foot + 14) - (layer.open ? 0 : 16)

        z: 1
        property real beside: layer.beside

        x: Math.round(layer.aside + ((parent?.width ?? 0) - layer.aside - beside - width) / 2)
        y: Math.round((parent?.height ?? 0) - height - rise)
        visible: opacity > 0
        opacity: layer.open ? 1 : 0
        widest: Math.min(560, layer.width - layer.aside - layer.beside - 2 * Theme.gap24)
        text: layer.words
        undoLabel: layer.label
        onUndo: layer.takeBack()

        Behavior on opacity {
            Glide {}
        }
        Behavior on rise {
            Glide {}
        }
        Behavior on beside {
            enabled: shown.visible
            Glide {}
        }
    }
}
