import QtQuick
import Vellix.Pieces

// When the review is due, in the longest words that fit. `due` is a DueChipView.
Item {
    id: chip

    required property var due

    implicitHeight: pill.implicitHeight + 3

    Pillbox {
        id: pill

        y: 3
        small: true
        icon: chip.due.icon
        tone: chip.due.tone
        help: chip.due.text
        text: {
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
