import QtQuick
import Vellix.Pieces

// A Flickable that goes along with the keyboard: what gets it comes into view, and the arrow and page
// keys scroll what is higher than its room. With a `label` it is then a Tab stop itself.
Flickable {
    id: area

    property string label: ""
    // Left around what comes into view.
    property real margin: Theme.gap8

    readonly property bool overflows: contentHeight > height + 0.5
    readonly property Item keyed: Window.activeFocusItem

    function goTo(to: real) {
        contentY = Math.max(0, Math.min(to, contentHeight - height));
    }

    function reveal(item: Item) {
        if (!overflows)
            return;
        const top = item.mapToItem(contentItem, 0, 0).y - margin;
        const bottom = top + item.height + 2 * margin;
        goTo(Math.min(top, Math.max(contentY, bottom - height)));
    }

    clip: true
    interactive: overflows
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: overflows && label !== ""

    Accessible.role: Accessible.Pane
    Accessible.name: label
    Accessible.focusable: activeFocusOnTab
    Accessible.ignored: !activeFocusOnTab

    onKeyedChanged: {
        let inside = keyed;
        while (inside && inside !== contentItem)
            inside = inside.parent;
        if (inside)
            reveal(keyed);
    }

    Keys.onPressed: event => {
        if (!overflows || event.modifiers & ~Qt.KeypadModifier)
            return;
        const targets = {
            [Qt.Key_Up]: contentY - 40,
            [Qt.Key_Down]: contentY + 40,
            [Qt.Key_PageUp]: contentY - 0.9 * height,
            [Qt.Key_PageDown]: contentY + 0.9 * height,
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: contentHeight
        };
        if (!(event.key in targets))
            return;
        goTo(targets[event.key]);
        event.accepted = true;
    }

    // Over what scrolls, and within what is cut off.
    FocusRing {
        parent: area
        visible: area.activeFocus
        anchors.margins: 0
        around: -4
        z: 1
    }
}
