import QtQuick
import Vellix.Pieces

// A ring arc that turns for as long as it can be seen. Most stand in a button and are never shown:
// what they are drawn with is made once they are.
Item {
    id: spinner

    property real size: 14
    property color color: Theme.muted
    property bool on: true

    implicitWidth: size
    implicitHeight: size

    Accessible.role: Accessible.Animation
    Accessible.name: "Working"

    Loader {
        anchors.fill: parent
        active: spinner.visible
        sourceComponent: Item {
            InSight {
                id: sight

                item: spinner
            }

            Ring {
                anchors.fill: parent
                thickness: Math.max(1.5, spinner.size / 9)
                color: Qt.alpha(spinner.color, spinner.color.a * 0.2)
            }

            Ring {
                anchors.fill: parent
                thickness: Math.max(1.5, spinner.size / 9)
                color: spinner.color
                sweep: 0.28

                RotationAnimation on rotation {
                    running: spinner.on && sight.now && !Theme.reducedMotion
                    from: 0
                    to: 360
                    duration: 900
                    loops: Animation.Infinite
                }
            }
        }
    }
}
