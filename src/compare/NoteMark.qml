import QtQuick
import Vellix.Compare
import Vellix.Pieces

// A note on a page: an area with its number at the corner, or the number alone. It takes no clicks;
// notes are worked with in their panel.
Item {
    id: note

    required property noteMarkView mark
    required property rect place  // of an area
    required property size picture

    signal asked()

    x: mark.area ? place.x : mark.box.x * picture.width - pin.width / 2
    y: mark.area ? place.y : mark.box.y * picture.height - pin.height / 2
    width: mark.area ? place.width : pin.width
    height: mark.area ? place.height : pin.height

    Accessible.role: Accessible.Button
    Accessible.name: mark.name
    Accessible.description: mark.help
    Accessible.onPressAction: note.asked()

    MarkFrame {
        visible: note.mark.area
        anchors.fill: parent
        color: Theme.onPaper.accent
        line: 1.8
        halo: 4
        haloOpacity: 0.85
    }

    NotePin {
        id: pin

        x: note.mark.area ? -width / 2 : 0
        y: note.mark.area ? -height / 2 : 0
        number: note.mark.number
    }

    ToolTipArea {
        anchors.fill: parent
        text: note.mark.help
    }

    ToolTipArea {
        anchors.fill: pin
        text: note.mark.help
    }
}
