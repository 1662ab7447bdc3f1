pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Profile

// The notes that the person is tagged in, if there are any.
Card {
    id: mentions

    required property ProfileModel profile
    required property PictureSource pictures

    title: "Tagged in"
    visible: rows.count > 0

    Item {
        width: parent.width
        implicitHeight: rows.height

        ValueList {
            id: rows

            x: -Theme.gap8
            width: parent.width + 2 * Theme.gap8
            label: mentions.title
            model: mentions.profile.mentions

            delegate: MentionRow {
                id: row

                width: rows.width
                pictures: mentions.pictures
                onClicked: mentions.profile.openTicket(row.ticket)
                Keys.onPressed: event => rows.walk(event, row.index, row)
            }
        }

        ScrollBar {
            view: rows
        }
    }
}
