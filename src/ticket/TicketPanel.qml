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
    // How far it has come in, and the room that it takes from the page.
    property real reach: open ? side.width + (floats ? Theme.gap16 : 0) : 0
    property real taken: open && !floats ? side.width : 0
    // 1 for the card.
    property real lift: floats ? 1 : 0
    property bool wasOpen: false
    property bool floated: false
    // What the keyboard went to from it.
    property Item heir: null

    // It goes, and the keyboard with it.
    signal keptOut(int reason)

    x: (parent?.width ?? 0) - reach
    y: lift * Theme.gap16
    width: side.width
    height: (parent?.height ?? 0) - lift * (foot + 2 * Theme.gap16)
    visible: open || reach > 0
    opacity: 1 - lift * (1 - Math.min(1, reach / (width + Theme.gap16)))

    Behavior on reach {
        enabled: panel.moves
        Glide {}
    }

    Behavior on taken {
        enabled: panel.moves
        Glide {}
    }

    Behavior on lift {
        enabled: panel.moves && panel.reach > 0
        Glide {}
    }

    // By hand it is closed for good. Where it was another width of the window that closed it, the
    // keyboard comes back with it, unless it has gone on meanwhile.
    onSideChanged: {
        const laid = side.floats !== floated;
        const turned = side.open !== wasOpen;
        floated = side.floats;
        wasOpen = side.open;
        if (!turned)
            return;
        if (!wasOpen)
            giveAway(laid);
        else if (laid)
            returning.restart();
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
        radius: panel.lift * Theme.radiusCard
        color: Theme.window

        Shadow {
            visible: panel.lift > 0
            anchors.fill: parent
            z: -1
            opacity: panel.lift
            radius: Theme.radiusCard
            color: Theme.shadow
        }
    }

    Ground {
        anchors.fill: parent
    }

    Hairline {
        vertical: true
        height: parent.height
        opacity: 1 - panel.lift
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
