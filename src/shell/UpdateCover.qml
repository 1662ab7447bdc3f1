import QtQuick
import Vellix.Pieces
import Vellix.Shell
import Vellix.Update

// Puts the screen of a required update in front of everything: sheets and popovers go out of sight
// with what they lie over, and all of it is back as it was when this copy may go on after all.
Item {
    id: cover

    required property UpdateModel update
    // Where sheets and popovers are.
    required property Item floats

    readonly property bool wanted: update.required.open
    property bool covers: false

    // What had the keyboard before has gone.
    signal keptOut()

    function follow() {
        if (wanted === covers)
            return;
        if (wanted)
            before.note(cover.Window.activeFocusItem);
        covers = wanted;
        if (wanted)
            screen.forceActiveFocus(Qt.OtherFocusReason);
        else if (!before.giveBack(before.ringed ? Qt.TabFocusReason : Qt.OtherFocusReason))
            keptOut();
    }

    onWantedChanged: follow()
    Component.onCompleted: follow()

    CameFrom {
        id: before
    }

    Binding {
        when: cover.covers
        target: cover.floats
        property: "visible"
        value: false
    }

    Loader {
        id: screen

        anchors.fill: parent
        active: cover.covers
        focus: true
        sourceComponent: RequiredUpdate {
            focus: true
            update: cover.update
        }
    }
}
