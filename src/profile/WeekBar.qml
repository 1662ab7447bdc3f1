import QtQuick
import Vellix.Pieces
import Vellix.Profile

// One week of the chart. All of its height is pointed at, however low the bar is.
PressArea {
    id: week

    required property int index
    required property double fraction
    required property string caption
    required property string spoken
    required property color colour
    property bool lit: false

    activeFocusOnTab: false

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.focusable: true

    Bar {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.max(1, Math.min(48, Math.round(parent.width * 0.62)))
        height: parent.height
        upright: true
        least: 2
        round: 4
        fraction: week.fraction
        color: Qt.alpha(week.colour, week.lit ? 1 : 0.72)

        FocusRing {
            visible: week.visualFocus
            anchors.margins: -3
            around: 4
        }
    }
}
