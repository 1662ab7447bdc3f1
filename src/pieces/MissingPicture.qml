import QtQuick
import Vellix.Pieces

// Lies in the place of a picture that did not load, and says so to whoever asks.
Item {
    id: missing

    property string help: "This picture didn't load. It is tried again."
    property real size: 22

    implicitWidth: size
    implicitHeight: size

    Accessible.role: Accessible.Graphic
    Accessible.name: help

    Symbol {
        anchors.centerIn: parent
        size: missing.size
        name: "photo.badge.exclamationmark"
        color: Theme.faint
    }

    ToolTipArea {
        anchors.fill: parent
        text: missing.help
    }
}
