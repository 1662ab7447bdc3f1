import QtQuick
import Vellix.Pieces
import Vellix.Ticket

// The panel at the trailing edge: beside the page or, where that is narrow, a card over it. It is one
// and the same there, and while it is hidden, so that it keeps what is written in it.
Item {
    id: panel

    required property notesPanelView side
    // What stands in it, once there is something to show; until then it is its ground alone.
    required property Component content
    required property bool loaded
    // What changes is seen to move.
    required property bool moves
    // What the card leaves free at the foot.
    required property real foot

    readonly property bool floats: side.floats
    readonly property bool open: side.open
    // How far it has come in. That glides where somebody opens or closes it; what another width of the
    // window changes is there at once.
    property real part: 0
    property bool glides: false
    // That in pixels, and the room that it takes from the page.
    readonly property real reach: part * (side.width + (floats ? Theme.gap16 : 0))
    readonly property real taken: floats ? 0 : part * side.width
    property bool wasOpen: false
    property bool floated: false
    // What the keyboard went to from it.
    property Item heir: null

    // It goes, and the keyboard with it.
    signal keptOut(int reason)

    x: (parent?.width ?? 0) - reach
    y: floats ? Theme.gap16 : 0
    width: side.width
    height: (parent?.height ?? 0) - (floats ? foot + 2 * Theme.gap16 : 0)
    visible: open || part > 0
    opacity: floats ? Math.min(1, part) : 1

    Behavior on part {
        enabled: panel.glides
        Glide {}
    }

    // By hand it is closed for good. Where it was another width of the window that closed it, the
    // keyboard comes back with it, unless it has gone on meanwhile.
    onSideChanged: {
        const laid = side.floats !== floated;
        const turned = side.open !== wasOpen;
        floated = side.floats;
        wasOpen = side.open;
        if (!turned && !laid)
            return;
        if (turned && !wasOpen)
            giveAway(laid);
        else if (turned && laid)
            returning.restart();
        glides = moves && !laid;
        part = wasOpen ? 1 : 0;
    }

    // Somebody may have gone there on its way out.
    onVisibleChanged: {
        if (!visible && !open && hold.inside)
            keptOut(Qt.TabFocusReason);
    }

    function giveAway(laid: bool) {
        heir = null;
        if (!hold.inside)
            return;
        before.note(hold.inside);
        keptOut(laid ? Qt.OtherFocusReason : Qt.TabFocusReason);
        if (laid)
            heir = Window.activeFocusItem;
    }

    // Once it can be seen.
    Timer {
        id: returning

        interval: 0
        onTriggered: {
            if (panel.heir && panel.heir === panel.Window.activeFocusItem)
                before.giveBack(before.ringed ? Qt.TabFocusReason : Qt.OtherFocusReason);
            panel.heir = null;
        }
    }

    CameFrom {
        id: before
    }

    KeyboardHold {
        id: hold

        around: panel
    }

    Rectangle {
        anchors.fill: parent
        radius: panel.floats ? Theme.radiusCard : 0
        color: Theme.window

        Shadow {
            visible: panel.floats
            anchors.fill: parent
            z: -1
            radius: Theme.radiusCard
            color: Theme.shadow
        }
    }

    Ground {
        anchors.fill: parent
    }

    Hairline {
        visible: !panel.floats
        vertical: true
        height: parent.height
    }

    Loader {
        // Not before it is first wanted, and kept from then on.
        property bool wanted: false
        readonly property bool due: panel.loaded && panel.open

        onDueChanged: wanted = wanted || due
        active: due || wanted
        anchors.fill: parent
        anchors.margins: panel.floats ? 4 : 0
        sourceComponent: panel.content
    }
}
