import QtQuick
import Vellix.Pieces

// A knob on a track. It shows `level` and asks for another by `moved`; `label` is its name.
PressArea {
    id: slider

    required property string label
    required property real level
    property alias from: slider.minimumValue
    property alias to: slider.maximumValue

    // What a screen reader reads and writes.
    property real value: level
    property real minimumValue: 0
    property real maximumValue: 1
    property real stepSize: (to - from) / 20

    signal moved(real level)

    readonly property real reach: width - knob.width
    readonly property real part: to > from ? Math.max(0, Math.min(1, (level - from) / (to - from))) : 0

    function ask(next: real) {
        const held = Math.max(from, Math.min(to, next));
        if (held !== level)
            moved(held);
    }

    implicitWidth: 90
    implicitHeight: 20
    handRoom: 24
    holdsPointer: true
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.Slider
    Accessible.name: label
    Accessible.description: help === label ? "" : help
    Accessible.focusable: true
    Accessible.onIncreaseAction: slider.ask(slider.level + slider.stepSize)
    Accessible.onDecreaseAction: slider.ask(slider.level - slider.stepSize)

    onValueChanged: {
        if (value === level)
            return;
        ask(value);
        value = Qt.binding(() => level);
    }
    onHeld: position => ask(from + (to - from) * (position.x - knob.width / 2) / reach)
    Keys.onLeftPressed: ask(level - stepSize)
    Keys.onRightPressed: ask(level + stepSize)
    Keys.onDownPressed: ask(level - stepSize)
    Keys.onUpPressed: ask(level + stepSize)

    Rectangle {
        x: knob.width / 2
        width: slider.reach
        height: 4
        anchors.verticalCenter: parent.verticalCenter
        radius: 2
        color: Theme.line

        Rectangle {
            width: slider.part * parent.width
            height: parent.height
            radius: 2
            color: Qt.alpha(Theme.muted, 0.55)
        }
    }

    Rectangle {
        id: knob

        x: Math.round(slider.part * slider.reach)
        width: 14
        height: 14
        anchors.verticalCenter: parent.verticalCenter
        radius: 7
        color: Theme.dark ? Theme.muted : Theme.raised
        border.width: 1
        border.color: Theme.dark ? Theme.muted : Qt.alpha(Theme.muted, 0.35)

        Rectangle {
            anchors.fill: parent
            radius: 7
            color: Theme.dark ? Theme.onAccent : Theme.text
            opacity: slider.pressed ? 0.2 : slider.hovered ? 0.12 : 0

            Behavior on opacity {
                NumberAnimation { duration: Theme.hover }
            }
        }

        FocusRing {
            visible: slider.visualFocus
            around: 7
        }
    }
}
