import QtQuick

// At the last page, or the last step, the keyboard goes on to the way back: once that is enabled.
Item {
    id: over

    property Item to

    function hand(from: Item, next: Item) {
        if (from.enabled || !from.focus)
            return;
        to = next;
        soon.start();
    }

    Timer {
        id: soon

        interval: 0
        onTriggered: {
            if (over.to.enabled)
                over.to.forceActiveFocus(Qt.TabFocusReason);
        }
    }
}
