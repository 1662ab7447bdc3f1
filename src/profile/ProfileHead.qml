import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile

// Who the person is, and a line of small facts.
Item {
    id: head

    required property profileHeadView person
    required property PictureSource pictures

    readonly property alias title: name

    signal photoWanted()

    function takeKeyboard() {
        name.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: Math.max(face.height, words.implicitHeight)

    Avatar {
        id: face

        who: head.person.avatar
        pictures: head.pictures
        size: 64
    }

    Column {
        id: words

        anchors.left: face.right
        anchors.leftMargin: Theme.gap16
        anchors.right: parent.right
        anchors.verticalCenter: face.verticalCenter
        spacing: 6

        Label {
            id: name

            width: Math.min(implicitWidth, parent.width)
            size: Theme.display
            weight: Font.Bold
            tellsWhole: true
            text: head.person.name
            Accessible.role: Accessible.Heading
            Accessible.focusable: activeFocus
            // No stop of Tab's, so that Tab would begin anew at the window.
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            FocusRing {
                visible: name.activeFocus
            }
        }

        // Its room is held: who comes and goes moves nothing.
        Row {
            height: 26
            spacing: Theme.gap8

            Loader {
                anchors.verticalCenter: parent.verticalCenter
                active: head.person.here !== undefined
                visible: active

                sourceComponent: ValuePill {
                    pill: head.person.here
                }
            }

            Pill {
                visible: title !== ""
                enabled: !head.person.changing
                title: head.person.changePhoto
                onClicked: head.photoWanted()
            }
        }
    }
}
