import QtQuick

// Whether an item can be seen, as far as a program is told. What moves or counts the time rests
// otherwise.
QtObject {
    id: sight

    required property Item item

    readonly property bool now: item.visible && item.Window.visibility !== Window.Hidden
                                && item.Window.visibility !== Window.Minimized
}
