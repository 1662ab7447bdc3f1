import QtQuick
import Vellix.Board
import Vellix.Pieces

// When the review is due; where it is `compact` in the longest words that fit.
Item {
    id: chip

    required property dueChipView due
    property bool compact: false
    property bool bedded: false
    readonly property real shown: pill.width

    implicitWidth: pill.implicitWidth
    implicitHeight: pill.implicitHeight

    Pillbox {
        id: pill

        anchors.bottom: parent.bottom
        small: true
        bedded: chip.bedded
        icon: chip.due.icon
        tone: chip.due.tone
        help: chip.compact ? chip.due.text : ""
        text: {
            if (!chip.compact)
                return chip.due.text;
            const room = chip.width - 2 * sidePadding - markWidth - gap;
            if (whole.width <= room)
                return chip.due.text;
            return shorter.width <= room ? chip.due.shortText : chip.due.tinyText;
        }
        width: Math.min(implicitWidth, chip.width)
    }

    component Measure: TextMetrics {
        font.family: Theme.family
        font.pointSize: Theme.small * Theme.pointsPerPixel
        font.weight: Font.Medium
    }

    Measure {
        id: whole

        text: chip.due.text
    }

    Measure {
        id: shorter

        text: chip.due.shortText
    }
}
