pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Profile

// The real issues by their kind.
Item {
    id: issues

    required property ProfileModel profile
    required property color colour

    implicitHeight: bars.count > 0 ? bars.height : none.implicitHeight

    ValueList {
        id: bars

        x: -Theme.gap4
        width: parent.width + 2 * Theme.gap4
        label: "Issues caught, by kind"
        model: issues.profile.issues

        delegate: IssueBar {
            id: row

            width: bars.width
            colour: issues.colour
            Keys.onPressed: event => bars.walk(event, row.index, row)
        }
    }

    Label {
        id: none

        visible: bars.count === 0
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: issues.profile.words.noIssues
    }

    ScrollBar {
        view: bars
    }
}
