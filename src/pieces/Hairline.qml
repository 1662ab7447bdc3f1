import QtQuick
import Vellix.Pieces

// A rule half a logical pixel thick, but at least one pixel of the device.
Rectangle {
    id: rule

    property bool vertical: false

    readonly property real thickness: Math.max(1, Math.round(Screen.devicePixelRatio / 2))
                                      / Screen.devicePixelRatio

    implicitWidth: thickness
    implicitHeight: thickness
    color: Theme.line
}
