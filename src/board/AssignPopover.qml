pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// Who reviews here, to choose from, and the way to the other queue. It closes before it asks for
// anything.
Popover {
    id: popover

    required property PlanModel plan
    required property PictureSource pictures

    function toggle(byKey: bool) {
        if (opened)
            return close();
        openAt(byKey);
    }

    // Whoever can be pressed, up or down, around and around. Its arguments go without types: with
    // them qmllint of Qt 6.4 crashes now and then.
    function go(from, down) {
        from.nextItemInFocusChain(down).forceActiveFocus(Qt.TabFocusReason);
    }

    y: parent.height + Theme.gap4
    padding: Theme.gap4
    label: "Reviewer"
    first: people.count > 0 ? people.itemAt(0) : move

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        id: content

        implicitWidth: 264
        implicitHeight: heading.height + list.contentHeight + foot.height
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popover.label

        Keys.onDownPressed: popover.go(content, true)
        Keys.onUpPressed: popover.go(content, false)

        Label {
            id: heading

            x: Theme.gap12
            height: 30
            size: Theme.tiny
            weight: Font.Bold
            color: Theme.muted
            font.letterSpacing: 0.5
            font.capitalization: Font.AllUppercase
            text: "Reviewer"
            Accessible.role: Accessible.Heading
        }

        ScrollArea {
            id: list

            anchors.top: heading.bottom
            anchors.bottom: foot.top
            width: parent.width
            contentHeight: rows.height + 2 * rows.y

            // Within what is cut off there is room for a ring.
            Column {
                id: rows

                x: Theme.gap4
                y: Theme.gap4
                width: list.width - 2 * x

                Repeater {
                    id: people

                    model: KeyedRows {
                        by: "email"
                        rows: popover.plan.reviewer.people
                    }

                    ReviewerRow {
                        id: row

                        required property string key
                        required property reviewerView value

                        width: rows.width
                        person: value
                        pictures: popover.pictures
                        onClicked: {
                            popover.close();
                            popover.plan.assign(key);
                        }
                        Keys.onDownPressed: popover.go(row, true)
                        Keys.onUpPressed: popover.go(row, false)
                    }
                }
            }
        }

        ScrollBar {
            view: list
        }

        Item {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            height: move.height + Theme.gap12

            Hairline {
                x: Theme.gap12
                width: parent.width - 2 * x
            }

            ListRow {
                id: move

                x: Theme.gap4
                y: Theme.gap8
                width: parent.width - 2 * x
                implicitHeight: 34
                label: popover.plan.reviewer.move
                onClicked: {
                    popover.close();
                    popover.plan.move();
                }
                Keys.onDownPressed: popover.go(move, true)
                Keys.onUpPressed: popover.go(move, false)

                Symbol {
                    id: arrows

                    x: Theme.gap8 + 6
                    anchors.verticalCenter: parent.verticalCenter
                    size: 14
                    name: "arrow.left.arrow.right"
                    color: Theme.muted
                }

                Label {
                    x: Theme.gap8 + 26 + Theme.gap8
                    anchors.verticalCenter: parent.verticalCenter
                    text: move.label
                    Accessible.ignored: true
                }
            }
        }
    }
}
