import QtQuick
import Vellix.Pieces

// One part of a date or a time: the arrow keys and a screen reader step it, and digits are typed
// into it. It shows `text` and asks for another number.
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
    signal typed(int number)

    // What a screen reader reads and writes.
    property real value: number
    property real minimumValue: least
    property real maximumValue: most
    property real stepSize: 1
    // The digits typed so far; what cannot become longer is whole.
    property string digits: ""

    function type(digit: string) {
        const all = Number(digits + digit) > most ? digit : digits + digit;
        digits = Number(all) * 10 > most ? "" : all;
        typed(Number(all));
    }

    implicitWidth: Math.ceil(words.implicitWidth) + 6
    implicitHeight: 22

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
        typed(asked);
    }
    onActiveFocusChanged: digits = ""
    onHeld: forceActiveFocus(Qt.MouseFocusReason)
    Keys.onUpPressed: {
        digits = "";
        stepped(1);
    }
    Keys.onDownPressed: {
        digits = "";
        stepped(-1);
    }
    Keys.onPressed: event => {
        if (!takesDigits || !/^[0-9]$/.test(event.text))
            return;
        type(event.text);
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
