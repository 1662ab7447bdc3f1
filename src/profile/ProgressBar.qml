import QtQuick
import Vellix.Pieces
import Vellix.Profile

// A capsule that is filled up to `value`, a fraction.
Item {
    id: progress

    required property double value
    required property color color

    implicitHeight: 4

    Bar {
        anchors.fill: parent
        round: height / 2
        fraction: 1
        color: Qt.alpha(Theme.muted, 0.14)
    }

    Bar {
        anchors.fill: parent
        round: height / 2
        least: progress.value > 0 ? height : 0
        fraction: progress.value
        color: progress.color
    }
}
