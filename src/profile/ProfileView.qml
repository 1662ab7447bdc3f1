import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile

// A person's page: who it is, how the reviewing goes, and what is still open.
FocusScope {
    id: page

    required property ProfileModel profile
    required property PictureSource pictures

    // Back to the tickets.
    signal leaving()
    signal photoWanted()

    readonly property profileHeadView person: profile.head
    readonly property color colour: person.avatar.color || Theme.muted

    // For who has come here by key.
    function takeKeyboard() {
        head.takeKeyboard();
    }

    KeyboardPart {
        around: page
        at: head.title
    }

    Accessible.role: Accessible.Pane
    Accessible.name: person.name

    // Without the ring the page itself has it.
    Keys.forwardTo: [scroll]

    ScrollArea {
        id: scroll

        anchors.fill: parent
        label: page.person.name
        margin: Theme.gap16
        contentHeight: column.height + Theme.gap16 + Theme.gap24

        Column {
            id: column

            x: Math.round((scroll.width - width) / 2)
            y: Theme.gap16
            width: Math.min(1040, scroll.width - 2 * Theme.gap24)
            spacing: Theme.gap16

            TextButton {
                icon: "chevron.left"
                size: 13
                color: Theme.muted
                text: "Tickets"
                onClicked: page.leaving()
            }

            ProfileHead {
                id: head

                width: parent.width
                person: page.person
                pictures: page.pictures
                onPhotoWanted: page.photoWanted()
            }

            Label {
                visible: text !== ""
                width: parent.width
                topPadding: Theme.gap8
                size: Theme.large
                color: Theme.muted
                text: page.person.adding
            }

            Loader {
                width: parent.width
                active: page.person.adding === ""
                visible: active

                sourceComponent: ProfileFigures {
                    profile: page.profile
                    pictures: page.pictures
                    colour: page.colour
                    ink: page.person.ink || Theme.window
                }
            }
        }
    }

    ScrollBar {
        view: scroll
    }
}
