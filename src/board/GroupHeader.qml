import QtQuick
import Vellix.Pieces

// The name of a group; of one that folds, a button that opens and closes it.
Item {
    id: header

    required property string title
    required property bool folds
    required property bool open
    required property string count

    signal toggled()

    // None where it does not fold.
    readonly property PressArea button: folds ? press : null

    implicitHeight: 34

    Label {
        visible: !header.folds
        x: Theme.gap8
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 6
        size: Theme.tiny
        weight: Font.Bold
        font.letterSpacing: 0.5
        font.capitalization: Font.AllUppercase
        color: Theme.muted
        text: header.title
    }

    Pressable {
        id: press

        visible: header.folds
        activeFocusOnTab: false
        anchors.fill: parent
        anchors.topMargin: 4
        label: header.title
        Accessible.description: header.count
        expandable: true
        expanded: header.open
        radius: Theme.radiusControl
        pressedScale: 1
        onClicked: header.toggled()

        Row {
            x: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                size: 10
                name: "chevron.right"
                color: Theme.muted
                rotation: header.open ? 90 : 0

                Behavior on rotation {
                    Glide {}
                }
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                size: Theme.body
                weight: Font.DemiBold
                color: Theme.muted
                text: header.title
                Accessible.ignored: true
            }

            Digits {
                anchors.verticalCenter: parent.verticalCenter
                size: Theme.body
                color: Theme.faint
                text: header.count
            }
        }
    }
}
