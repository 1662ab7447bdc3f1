pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Inspector
import Vellix.Pieces

// The two wordings of a finding below one another. `wordings` is a list of WordingView.
Column {
    id: both

    required property var wordings

    spacing: 8

    Repeater {
        model: both.wordings.length

        Rectangle {
            id: block

            required property int index
            readonly property wordingView wording: both.wordings[index] ?? ({ caption: "", text: "" })

            width: both.width
            height: words.height + 16
            radius: Theme.radiusControl
            color: Theme.hoverFill

            Column {
                id: words

                x: 8
                y: 8
                width: parent.width - 16
                spacing: 2

                Label {
                    width: parent.width
                    size: Theme.tiny
                    color: Theme.faint
                    text: block.wording.caption
                }

                Label {
                    width: parent.width
                    wrapMode: Text.Wrap
                    size: Theme.body
                    color: block.wording.text === "" ? Theme.muted : Theme.text
                    text: block.wording.text || "(nothing)"
                }
            }
        }
    }
}
