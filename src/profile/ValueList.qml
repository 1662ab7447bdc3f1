import QtQuick
import Vellix.Pieces

// Rows in a card, of which there may be any number: as high as they are together, up to a bound,
// beyond which they scroll. One stop in Tab's way; its current row has the keyboard. Rows are press
// areas and hand their keys to `walk`.
ListView {
    id: list

    required property string label
    property real tallest: 440

    readonly property bool across: orientation === ListView.Horizontal
    readonly property bool overflows: across ? contentWidth > width + 0.5 : contentHeight > height + 0.5

    // The keyboard goes to the row of this number, or to the nearest that there is.
    function go(to: int) {
        const index = Math.max(0, Math.min(to, count - 1));
        positionViewAtIndex(index, ListView.Contain);
        // Before it is the current one, which would give it the focus without the ring.
        itemAtIndex(index).forceActiveFocus(Qt.TabFocusReason);
        currentIndex = index;
    }
    function walk(event: var, from: int, row: Item) {
        if (event.modifiers & ~Qt.KeypadModifier)
            return;
        const room = across ? width / row.width : height / row.height;
        const by = across ? keys.by(turned[event.key] ?? event.key, 1, 0, count)
                          : keys.by(event.key, 1, Math.max(1, Math.floor(room) - 1), count);
        if (by === 0 || (across && (event.key === Qt.Key_Up || event.key === Qt.Key_Down)))
            return;
        go(from + by);
        event.accepted = true;
    }
    readonly property var turned: ({ [Qt.Key_Left]: Qt.Key_Up, [Qt.Key_Right]: Qt.Key_Down })

    implicitHeight: Math.min(contentHeight, tallest)
    height: implicitHeight
    clip: overflows
    interactive: overflows
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    activeFocusOnTab: count > 0
    currentIndex: 0

    Accessible.role: Accessible.List
    Accessible.name: label

    ListKeys {
        id: keys
    }
}
