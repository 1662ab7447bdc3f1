import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces

// A float over the window. It opens where there is room, takes the keyboard, closes on Esc and on a
// press elsewhere, which does nothing else, and gives the focus back.
T.Popup {
    id: popover

    // What a screen reader calls it.
    required property string label
    property real radius: Theme.radiusCard
    // It was opened by key: then `first`, where there is one, gets the keyboard at once.
    property bool byKey: false
    property Item first: null
    readonly property CameFrom cameFrom: CameFrom {}
    readonly property KeyboardHold hold: KeyboardHold {
        around: popover.contentItem
    }

    // It does not outstay what it hangs on, where that may go by itself.
    property bool goesAlong: false
    readonly property Connections hanging: Connections {
        enabled: popover.goesAlong
        target: popover.parent

        function onVisibleChanged() {
            if (!popover.parent.visible)
                popover.close();
        }
    }

    // What had the keyboard before does not take it back.
    signal keptOut()

    function openAt(byKey: bool) {
        popover.byKey = byKey;
        open();
    }

    // The keyboard goes back to what had it.
    function giveBack() {
        if (cameFrom.item && !cameFrom.giveBack(cameFrom.ringed ? Qt.TabFocusReason : Qt.PopupFocusReason))
            keptOut();
        cameFrom.item = null;
    }

    modal: true
    // Without it nothing would lie over the window. It darkens nothing.
    dim: true
    focus: true
    margins: Theme.gap8
    padding: Theme.gap16
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding

    // At once: the next key may come before it has faded in.
    onVisibleChanged: {
        if (visible && byKey && first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }
    onAboutToShow: cameFrom.note(parent?.Window.activeFocusItem ?? null)
    // The next time it begins anew: no key acts on what was at hand the last time.
    onAboutToHide: hold.letGo()
    onClosed: giveBack()

    T.Overlay.modal: Ground {}

    background: Rectangle {
        radius: popover.radius
        color: Theme.raised
        border.width: 1
        border.color: Theme.line

        Shadow {
            anchors.fill: parent
            z: -1
            radius: popover.radius
            color: Theme.shadow
        }
    }

    // It does not fade away: while it did, it would keep keys and shortcuts from the window.
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.hover }
    }
}
