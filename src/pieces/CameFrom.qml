import QtQuick
import Vellix.Pieces

// What had the keyboard before something took it, to give it back.
QtObject {
    id: before

    property Item item: null
    // It had come there by key.
    property bool ringed: false

    function note(keyed: Item) {
        item = keyed;
        ringed = (keyed as PressArea)?.visualFocus ?? false;
    }

    function takeOver(other: CameFrom) {
        item = other.item;
        ringed = other.ringed;
        other.item = null;
    }

    // Not where it has gone meanwhile, or does nothing now.
    function giveBack(reason: int): bool {
        if (!item?.visible || !item.enabled || !item.Window.window)
            return false;
        item.forceActiveFocus(reason);
        return true;
    }
}
