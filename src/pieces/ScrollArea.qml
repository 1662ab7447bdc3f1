import QtQuick
import Vellix.Pieces

// A Flickable that goes along with the keyboard: what gets it comes into view, as does the caret of a
// text and all that is written with it, and the arrow and page keys scroll what is higher than its
// room. With a `label` it is then a Tab stop itself.
Flickable {
    id: area

    property string label: ""
    // Left around what comes into view.
    property real margin: Theme.gap8

    readonly property bool overflows: contentHeight > height + 0.5
    readonly property Item inside: hold.inside
    readonly property TextEdit text: inside as TextEdit
    readonly property Item whole: writing(inside) ?? inside
    readonly property bool writes: text !== null || (inside as TextInput) !== null
    // The content is about to follow what grew in it.
    property bool grew: false

    function writing(item: Item): Item {
        for (let each = item; each && each !== contentItem; each = each.parent)
            if (each as Writing)
                return each;
        return null;
    }

    function follow() {
        if (!whole)
            return;
        reveal(whole);
        if (text)
            bring(text, text.cursorRectangle);
    }

    function goTo(to: real) {
        contentY = Math.max(0, Math.min(to, contentHeight - height));
    }

    function reveal(item: Item) {
        bring(item, Qt.rect(0, 0, item.width, item.height));
    }

    function bring(item: Item, part: rect) {
        if (!overflows)
            return;
        const top = item.mapToItem(contentItem, part.x, part.y).y - margin;
        const bottom = top + part.height + 2 * margin;
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

    onWholeChanged: follow()
    onInsideChanged: follow()
    // What is written in stays in sight, also where its room shrinks.
    onHeightChanged: {
        if (writes)
            follow();
    }
    onContentHeightChanged: {
        if (grew)
            follow();
        grew = false;
        if (inside as TextInput)
            following.restart();
    }

    // Once what has come or gone above it has been laid out.
    Timer {
        id: following

        interval: 0
        onTriggered: area.follow()
    }

    ListKeys {
        id: keys
    }

    KeyboardHold {
        id: hold

        around: area.contentItem
    }

    Connections {
        target: area.text

        function onCursorRectangleChanged() {
            area.follow();
        }
    }

    Connections {
        target: area.whole

        function onHeightChanged() {
            area.grew = true;
            area.follow();
        }
    }

    Keys.onPressed: event => {
        if (!overflows || event.modifiers & ~Qt.KeypadModifier)
            return;
        const by = keys.by(event.key, 40, 0.9 * height, contentHeight);
        if (by === 0)
            return;
        goTo(contentY + by);
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
