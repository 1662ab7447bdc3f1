import QtQuick
import Vellix.Pieces

// One part of a date or a time: the arrow keys and a screen reader step it, and digits are typed
// into it. It shows `text`, and tells what is asked for.
PressArea {
    id: part

    required property string label
    required property string text
    // What the text stands for.
    required property int number
    property int least: 0
    required property int most
    property bool takesDigits: false

    signal stepped(int by)
    signal typed(string digit)
    signal entered(int number)
    // The keyboard has gone: what was typed stands.
    signal ended()

    // What a screen reader reads and writes.
    property real value: number
    property real minimumValue: least
    property real maximumValue: most
    property real stepSize: 1

    implicitWidth: Math.ceil(words.implicitWidth) + 6
    implicitHeight: 22
    handRoom: 24

    Accessible.role: Accessible.SpinBox
    Accessible.name: label + ": " + text
    Accessible.focusable: true
    Accessible.onIncreaseAction: part.stepped(1)
    Accessible.onDecreaseAction: part.stepped(-1)

    onValueChanged: {
        if (value === number)
            return;
        const asked = Math.round(value);
        value = Qt.binding(() => number);
        entered(asked);
    }
    onActiveFocusChanged: {
        if (!activeFocus)
            ended();
    }
    onHeld: forceActiveFocus(Qt.MouseFocusReason)
    Keys.onUpPressed: stepped(1)
    Keys.onDownPressed: stepped(-1)
    Keys.onPressed: event => {
        if (!takesDigits || !/^[0-9]$/.test(event.text))
            return;
        typed(event.text);
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        radius: 5
        color: part.activeFocus ? Theme.selectedFill : Theme.hoverFill
        opacity: part.activeFocus || part.hovered ? 1 : 0
    }

    FocusRing {
        visible: part.activeFocus
        anchors.margins: -1
        around: 3
    }

    Digits {
        id: words

        anchors.centerIn: parent
        size: Theme.row
        text: part.text
        Accessible.ignored: true
    }
}
