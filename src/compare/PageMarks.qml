pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare

// All that lies on the picture of a pane: where notes are drawn, findings, notes, the draft.
// What reaches beyond the page is cut off, but for the half of a pin on its edge.
Item {
    id: marks

    required property CompareModel compare
    required property string side
    required property var boxes
    required property var notes
    required property var draft
    required property bool draws

    readonly property size picture: Qt.size(width, height)
    // Stands in for a mark that goes, until its item has gone.
    readonly property var gone: ({ finding: "", box: { x: 0, y: 0, width: 0, height: 0 }, colour: "accent",
                                   soft: false, selected: false, area: false, number: 0, help: "", name: "" })

    Repeater {
        model: marks.draws ? 1 : 0

        DrawLayer {
            anchors.fill: parent
            onDrawn: (from, to) => marks.compare.beginNote(marks.side, from, to, marks.picture)
        }
    }

    Item {
        id: cut

        readonly property int reach: 15

        anchors.fill: parent
        anchors.margins: -reach
        clip: true

        Item {
            x: cut.reach
            y: cut.reach

            // By number, so that a mark keeps the focus and the hover when others change.
            Repeater {
                model: marks.boxes.length

                BoxMark {
                    required property int index

                    mark: marks.boxes[index] ?? marks.gone
                    place: marks.compare.boxMark(mark.box, marks.picture)
                    onClicked: marks.compare.pressBox(mark.finding)
                }
            }
        }

        Item {
            x: cut.reach
            y: cut.reach

            Repeater {
                model: marks.notes.length

                NoteMark {
                    required property int index

                    mark: marks.notes[index] ?? marks.gone
                    picture: marks.picture
                    place: marks.compare.areaMark(mark.box, marks.picture)
                    onAsked: marks.compare.openNotes()
                }
            }

            Repeater {
                model: marks.draft.here ? 1 : 0

                DraftOutline {
                    mark: marks.draft
                    picture: marks.picture
                    onDropped: marks.compare.dropDraft()
                }
            }
        }
    }
}
