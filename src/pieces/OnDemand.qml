import QtQml

// What is not an item (a popover, a window): made when it is first asked for, and kept. A Loader of
// Qt 6.4 could not make what is bound to the ids around it.
Instantiator {
    active: false

    // None, if this is itself still being made.
    function made(): QtObject {
        active = true;
        return object;
    }
}
