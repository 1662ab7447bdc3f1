import QtQuick
import Vellix.Compare
import Vellix.Pieces

// What an overlay is adjusted with, in the room that is left to it.
Row {
    id: tools

    required property CompareModel compare
    // At most this wide, and no less than the least.
    property real room: Infinity

    readonly property real least: 60 + spacing + difference.width
    readonly property real most: 96 + spacing + difference.width

    spacing: Theme.gap8

    Slider {
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(60, Math.min(96, tools.room - tools.spacing - difference.width))
        label: help
        help: "How much of ours shows through"
        level: tools.compare.bar.opacity
        onMoved: level => tools.compare.setOpacity(level)
    }

    CheckBox {
        id: difference

        anchors.verticalCenter: parent.verticalCenter
        text: "Difference"
        size: Theme.body
        checked: tools.compare.bar.difference
        onToggled: checked => tools.compare.setDifference(checked)
    }
}
