import QtQuick
import Vellix.Pieces

// Remembers that the keyboard was within `around` last, also once what had it is gone: then nobody
// has it but what is around it. `ringed` tells that it had come there by key, or that somebody wrote.
QtObject {
    id: hold

    required property Item around

    readonly property Item keyed: around.Window.activeFocusItem
    property bool held: false
    property bool ringed: false
    readonly property bool lost: held && keyed !== null && !has(around, keyed)

    function has(outer: Item, inner: Item): bool {
        while (inner && inner !== outer)
            inner = inner.parent;
        return inner !== null;
    }

    onKeyedChanged: {
        if (keyed !== around && has(around, keyed)) {
            held = true;
            ringed = (keyed as PressArea)?.visualFocus ?? true;
        } else if (keyed && !has(keyed, around)) {
            held = false;
        }
    }
}
