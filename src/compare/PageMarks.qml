pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// All that lies on the picture of a pane: where notes are drawn, findings, notes, the draft.
// What reaches beyond the page is cut off, but for the half of a pin on its edge.
Item {
    id: marks

    required property CompareModel compare
    required property string pane  // its key
    required property var notes
    required property draftMarkView draft
    required property bool draws
    // The last frame showed the page that these lie on: what was seen before takes no note.
    required property bool seen

    // A mark that the keyboard has come to.
    signal sought(Item mark)
    // A note was pressed.
    signal noteAsked()
    // A note's place was drawn.
    signal drawn(point from, point to)

    readonly property size picture: Qt.size(width, height)

    Repeater {
        model: marks.draws ? 1 : 0

        DrawLayer {
            anchors.fill: parent
            enabled: marks.seen
            page: marks.compare.bar.page
            onDrawingChanged: marks.compare.setDrawing(drawing)
            Component.onDestruction: marks.compare.setDrawing(false)
            onDrawn: (from, to) => marks.drawn(from, to)
        }
    }

    Item {
        id: cut

        readonly property int reach: 15

        anchors.fill: parent
        anchors.margins: -reach
        clip: true

        BoxMarks {
            id: boxes

            x: cut.reach
            y: cut.reach
            width: marks.width
            height: marks.height
            compare: marks.compare
            pane: marks.pane
            accent: Theme.onPaper.accent
            green: Theme.onPaper.green
            muted: Theme.onPaper.muted
            opacity: enabled ? 1 : 0.45
            onSought: mark => marks.sought(mark)

            Accessible.role: Accessible.Grouping

            FocusRing {
                parent: boxes.keyed ?? boxes
                visible: boxes.keyed !== null
                around: 3
            }
        }

        Item {
            x: cut.reach
            y: cut.reach

            Repeater {
                model: KeyedRows {
                    rows: marks.notes
                }

                NoteMark {
                    required property noteMarkView value

                    mark: value
                    picture: marks.picture
                    place: marks.compare.areaMark(mark.box, marks.picture)
                    onAsked: marks.noteAsked()
                }
            }

            Repeater {
                model: marks.draft.here ? 1 : 0

                DraftOutline {
                    mark: marks.draft
                    picture: marks.picture
                    onResumed: marks.compare.resumeNote()
                }
            }
        }
    }
}
