pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// Who reviews here, and who of them is in the program now; at the far end the activity, the
// settings and the account.
Item {
    id: bar

    required property BoardModel board
    required property ActivityModel activity
    required property PictureSource pictures

    // A command of the program's was chosen, by its key.
    signal commanded(string key)

    // Null when there is no such person.
    function buttonOf(email: string): Pressable {
        for (let i = 0; i < people.count; ++i) {
            const person = people.itemAt(i) as Pressable;
            if (person?.email === email)
                return person;
        }
        return null;
    }
    // The keyboard goes to that person, where there is one.
    function takeKeyboard(email: string) {
        buttonOf(email)?.forceActiveFocus(Qt.TabFocusReason);
    }
    // That person was chosen by key.
    function keyed(email: string): bool {
        return buttonOf(email)?.visualFocus ?? false;
    }

    // Many people move together, so that all of them find room.
    readonly property real step: people.count < 2 ? 0
        : Math.min(38, (ends.x - Theme.gap8 - 30) / (people.count - 1))

    implicitHeight: 30

    Accessible.role: Accessible.Grouping
    Accessible.name: "People"

    Repeater {
        id: people

        model: bar.board.people

        Pressable {
            id: person

            required property int index
            required property string email
            required property avatarView avatar
            required property bool ring
            required property bool here

            help: label
            radius: width / 2
            x: index * bar.step
            z: visualFocus ? 1 : -index
            width: 30
            height: 30
            expandable: true
            expanded: ring
            // Of two quick presses the second would close what the first has opened.
            says: ring
            onClicked: bar.board.togglePage(email)

            Accessible.description: here ? "In Vellix now" : ""

            // Hides the neighbour that it covers.
            Rectangle {
                visible: bar.step < parent.width
                anchors.fill: parent
                anchors.margins: -2
                radius: width / 2
                color: Theme.column
            }

            Avatar {
                who: person.avatar
                pictures: bar.pictures
                size: 30
                ring: person.ring
                help: ""
                Accessible.ignored: true
            }

            // The dot's own ring is in the colour of the column.
            Rectangle {
                visible: person.here
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: -2
                width: 12
                height: 12
                radius: 6
                color: Theme.column

                Rectangle {
                    anchors.centerIn: parent
                    width: 8
                    height: 8
                    radius: 4
                    color: Theme.success
                }
            }
        }
    }

    Row {
        id: ends

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: parent.height
        spacing: 2

        ActivityButton {
            width: height
            height: ends.height
            activity: bar.activity
            pictures: bar.pictures
        }

        IconButton {
            width: height
            height: ends.height
            symbol: "gearshape"
            help: Theme.keys("Settings (⌘,)")
            onClicked: bar.commanded("settings")
        }

        IconButton {
            id: account

            width: height
            height: ends.height
            symbol: "ellipsis"
            help: "Account"
            checked: (menu.object as Menu)?.visible ?? false
            expandable: true
            expanded: checked
            onClicked: (menu.made() as Menu).openAt(visualFocus)

            OnDemand {
                id: menu

                Menu {
                    parent: account
                    x: account.width - width
                    y: -height - Theme.gap4
                    label: "Account"
                    entries: [
                        { key: "changePhoto", text: "Change my photo…", enabled: !bar.board.changingPhoto },
                        { key: "", text: "", enabled: false },
                        { key: "signOut", text: "Sign out", enabled: true },
                    ]
                    onPicked: key => bar.commanded(key)
                }
            }
        }
    }
}
