import QtQuick
import Vellix.Pieces

// A date with hour and minute. It tells what is asked for part by part.
Row {
    id: picker

    required property datePickerView shown
    property string label: ""
    readonly property Item first: day

    signal stepped(string part, int by)
    signal typed(string part, string digit)
    signal entered(string part, int number)
    signal ended()

    spacing: Theme.gap8

    Accessible.role: Accessible.Grouping
    Accessible.name: label

    StepFrame {
        earlierHelp: "A day earlier"
        laterHelp: "A day later"
        earlier: picker.shown.firstDay < picker.shown.dayNumber
        later: picker.shown.dayNumber < picker.shown.lastDay
        onStepped: by => picker.stepped("day", by)

        DatePart {
            id: day

            anchors.verticalCenter: parent.verticalCenter
            label: "Day"
            text: picker.shown.day
            number: picker.shown.dayNumber
            least: picker.shown.firstDay
            most: picker.shown.lastDay
            onStepped: by => picker.stepped("day", by)
            onEntered: number => picker.entered("day", number)
            KeyNavigation.right: hour
        }
    }

    StepFrame {
        earlierHelp: "A quarter of an hour earlier"
        laterHelp: "A quarter of an hour later"
        earlier: picker.shown.earlier
        later: picker.shown.later
        onStepped: by => picker.stepped("quarter", by)

        DatePart {
            id: hour

            anchors.verticalCenter: parent.verticalCenter
            label: "Hour"
            text: picker.shown.hour
            number: picker.shown.hourNumber
            least: picker.shown.half === "" ? 0 : 1
            most: picker.shown.half === "" ? 23 : 12
            takesDigits: true
            onStepped: by => picker.stepped("hour", by)
            onTyped: digit => picker.typed("hour", digit)
            onEntered: number => picker.entered("hour", number)
            onEnded: picker.ended()
            KeyNavigation.left: day
            KeyNavigation.right: minute
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: ":"
            Accessible.ignored: true
        }

        DatePart {
            id: minute

            anchors.verticalCenter: parent.verticalCenter
            label: "Minute"
            text: picker.shown.minute
            number: picker.shown.minuteNumber
            most: 59
            takesDigits: true
            onStepped: by => picker.stepped("minute", by)
            onTyped: digit => picker.typed("minute", digit)
            onEntered: number => picker.entered("minute", number)
            onEnded: picker.ended()
            KeyNavigation.left: hour
            KeyNavigation.right: half
        }

        DatePart {
            id: half

            visible: text !== ""
            anchors.verticalCenter: parent.verticalCenter
            label: "Half of the day"
            text: picker.shown.half
            number: picker.shown.afternoon ? 1 : 0
            least: picker.shown.otherHalf ? 0 : number
            most: picker.shown.otherHalf ? 1 : number
            onStepped: by => picker.stepped("half", by)
            onEntered: number => picker.entered("half", number)
            onClicked: picker.stepped("half", 1)
            KeyNavigation.left: minute
            Keys.onPressed: event => {
                const letter = event.text.toLowerCase();
                if (letter !== "a" && letter !== "p")
                    return;
                picker.entered("half", letter === "p" ? 1 : 0);
                event.accepted = true;
            }
        }
    }
}
