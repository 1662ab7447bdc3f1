import QtQuick

// A part that is made once it is needed, and kept from then on: what it holds is not lost.
Loader {
    required property bool needed

    active: false
    onNeededChanged: {
        if (needed)
            active = true;
    }
}
