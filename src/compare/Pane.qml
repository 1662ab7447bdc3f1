pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pictures
import Vellix.Pieces

// One shown picture under its caption, with its marks; or the words that take its place.
Item {
    id: pane

    required property int index
    required property string key
    required property string img
    required property string thumb
    required property string label
    required property string tone
    required property string missing
    required property string missingWhy
    required property bool onStage
    required property string under
    required property bool difference
    required property var notes
    required property draftMarkView draft
    required property CompareModel compare
    required property PictureSource pictures
    required property bool shifting  // its place changes by what was shown or hidden

    readonly property bool underMissing: overlaid.count > 0 && (overlaid.itemAt(0) as RemoteImage).missing
                                         || compared.count > 0 && (compared.itemAt(0) as DifferenceImage).missing
    readonly property var told: compare.stage.layout.panes[index]
    // The last that was told: while panes change there may be none for a moment.
    property panePlace place: ({ x: 0, y: 0, width: 0, height: 0, page: Qt.rect(0, 0, 0, 0) })
    property bool settled: false

    signal sought(Item mark)
    signal noteAsked()

    x: place.x
    y: place.y
    width: place.width
    height: place.height
    visible: onStage
    opacity: settled ? 1 : 0

    Accessible.role: Accessible.Grouping
    Accessible.name: label

    onToldChanged: {
        if (told)
            place = told;
    }
    Component.onCompleted: {
        if (told)
            place = told;
        settled = true;
    }

    Behavior on x {
        enabled: pane.shifting && pane.settled
        Glide {}
    }

    Behavior on opacity {
        enabled: pane.shifting
        Glide {}
    }

    Row {
        id: caption

        visible: pane.img !== ""
        x: Math.max(0, page.x)
        spacing: 6
        height: 16

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 7
            height: 7
            radius: 3.5
            color: Theme.fore[pane.tone]
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, pane.width - caption.x - 13 - (pane.underMissing ? 20 : 0))
            size: Theme.note
            color: Theme.muted
            tellsWhole: true
            text: pane.label
        }

        Repeater {
            model: pane.underMissing ? 1 : 0

            MissingPicture {
                anchors.verticalCenter: caption.verticalCenter
                size: 14
                help: "The page to lay over this one didn't load. It is tried again."
            }
        }
    }

    Item {
        id: page

        visible: pane.img !== ""
        x: pane.place.page.x - pane.place.x
        y: pane.place.page.y - pane.place.y
        width: pane.place.page.width
        height: pane.place.page.height

        Behavior on width {
            enabled: pane.shifting && pane.settled
            Glide {}
        }

        Behavior on height {
            enabled: pane.shifting && pane.settled
            Glide {}
        }

        Shadow {
            anchors.fill: parent
            radius: 2
            color: Theme.shadow
        }

        RemoteImage {
            id: own

            anchors.fill: parent
            pictures: pane.pictures
            key: pane.img
            standIn: pane.thumb
            pageRoom: pane.compare.stage.layout.room
            placeholder: missing ? Theme.well : Theme.paper

            Accessible.role: Accessible.Graphic
            Accessible.name: pane.label
            Accessible.ignored: !ready
        }

        Repeater {
            id: overlaid

            model: pane.under !== "" && !pane.difference ? 1 : 0

            // Place on place, also where its shape is another.
            RemoteImage {
                x: own.painted.x
                y: own.painted.y
                width: own.painted.width
                height: own.painted.height
                stretched: true
                pictures: pane.pictures
                key: pane.under
                placeholder: "transparent"
                opacity: pane.compare.bar.opacity
            }
        }

        Repeater {
            id: compared

            model: pane.difference ? 1 : 0

            DifferenceImage {
                anchors.fill: parent
                pictures: pane.pictures
                key: pane.img
                under: pane.under
            }
        }

        LateSpinner {
            anchors.centerIn: parent
            size: 18
            waits: pane.onStage && pane.img !== "" && !own.ready && !own.missing
        }

        Repeater {
            model: own.missing ? 1 : 0

            MissingPicture {
                anchors.fill: page
            }
        }

        // Of a page that nobody can see they would tell nothing.
        PageMarks {
            visible: own.shown !== ""
            anchors.fill: parent
            compare: pane.compare
            pane: pane.key
            notes: pane.notes
            draft: pane.draft
            draws: pane.compare.bar.draws
            seen: own.shown === pane.img
            onSought: mark => pane.sought(mark)
            onNoteAsked: pane.noteAsked()
            onDrawn: (from, to) => pane.compare.beginNote(pane.index, from, to, picture)
        }
    }

    Repeater {
        model: pane.img === "" ? 1 : 0

        NoRef {
            anchors.fill: parent
            what: pane.missing
            why: pane.missingWhy
        }
    }
}
