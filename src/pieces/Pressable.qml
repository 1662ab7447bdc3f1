import QtQuick
import Vellix.Pieces

// A press area that a screen reader can press, with the ring, the press scale and the disabled look
// that all buttons share. `label` is its name: the visible text, or the help of a bare icon.
PressArea {
    id: area

    required property string label
    property real radius: Theme.radiusControl
    property real pressedScale: 0.97

    opacity: enabled ? 1 : 0.45
    scale: pressed && enabled ? pressedScale : 1

    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.description: help === label ? "" : help
    Accessible.focusable: true
    Accessible.pressed: pressed
    Accessible.onPressAction: area.click()

    Behavior on scale {
        NumberAnimation { duration: Theme.hover }
    }

    ring: FocusRing {
        around: area.radius
        z: 1
    }
}
