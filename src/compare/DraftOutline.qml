import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The place of the note that is being written.
Item {
    id: draft

    required property draftMarkView mark
    required property size picture

    property bool pulse: false

    signal resumed()

    x: mark.box.x * picture.width - (mark.area ? 0 : width / 2)
    y: mark.box.y * picture.height - (mark.area ? 0 : height / 2)
    width: mark.area ? mark.box.width * picture.width : 18
    height: mark.area ? mark.box.height * picture.height : 18

    Accessible.role: Accessible.Button
    Accessible.name: mark.name
    Accessible.description: "Press to write"
    Accessible.onPressAction: draft.resumed()

    Component.onCompleted: pulse = true

    MarkFrame {
        visible: draft.mark.area
        anchors.fill: parent
        color: Theme.onPaper.accent
        line: 2
        dash: 6
        fill: 0.08
    }

    Rectangle {
        id: halo

        visible: !draft.mark.area
        anchors.centerIn: parent
        width: 18
        height: 18
        radius: 9
        color: Theme.onPaper.accent
        opacity: 0.4

        SequentialAnimation {
            running: halo.visible && draft.pulse && !Theme.reducedMotion
            loops: Animation.Infinite

            ParallelAnimation {
                NumberAnimation { target: halo; property: "scale"; from: 1; to: 1.8; duration: 900; easing.type: Easing.InOutQuad }
                NumberAnimation { target: halo; property: "opacity"; from: 0.4; to: 0.1; duration: 900; easing.type: Easing.InOutQuad }
            }

            ParallelAnimation {
                NumberAnimation { target: halo; property: "scale"; from: 1.8; to: 1; duration: 900; easing.type: Easing.InOutQuad }
                NumberAnimation { target: halo; property: "opacity"; from: 0.1; to: 0.4; duration: 900; easing.type: Easing.InOutQuad }
            }
        }
    }

    Rectangle {
        visible: !draft.mark.area
        anchors.fill: parent
        radius: 9
        color: Theme.onPaper.accent
        border.width: 2
        border.color: Theme.onAccent
    }
}
