pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile

// What the person has still to review.
Card {
    id: open

    required property ProfileModel profile
    required property PictureSource pictures

    title: profile.words.open

    Item {
        width: parent.width
        implicitHeight: rows.count > 0 ? rows.height : none.implicitHeight

        ValueList {
            id: rows

            // Their grounds reach out, so that the words stand below the title.
            x: -Theme.gap8
            width: parent.width + 2 * Theme.gap8
            label: open.title
            model: open.profile.open

            delegate: OpenRow {
                id: row

                width: rows.width
                pictures: open.pictures
                onClicked: open.profile.openTicket(row.id)
                Keys.onPressed: event => rows.walk(event, row.index, row)
            }
        }

        Label {
            id: none

            visible: rows.count === 0
            width: parent.width
            size: Theme.body
            color: Theme.muted
            text: open.profile.words.noneOpen
        }

        ScrollBar {
            view: rows
        }
    }
}
