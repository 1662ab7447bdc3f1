import QtQuick

// What somebody writes in: Control and Return send it off, wherever in it the keyboard is.
FocusScope {
    signal confirmed()

    Keys.onPressed: event => {
        const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        if (!enter || (event.modifiers & ~Qt.KeypadModifier) !== Qt.ControlModifier)
            return;
        event.accepted = true;
        if (!event.isAutoRepeat)
            confirmed();
    }
}
