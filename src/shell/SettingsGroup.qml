pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// A heading and the switches under it. `section` is a SettingsSection.
Column {
    id: group

    required property settingsSection section

    signal toggled(string key, bool on)

    spacing: 6

    Label {
        x: Theme.gap4
        size: Theme.note
        weight: Font.DemiBold
        color: Theme.muted
        text: group.section.title
        Accessible.role: Accessible.Heading
    }

    Card {
        id: card

        width: parent.width
        padding: 0
        spacing: 0

        Repeater {
            model: group.section.toggles.length

            Item {
                id: line

                required property int index
                readonly property toggleView toggle: group.section.toggles[index]

                width: card.width
                height: 42

                Hairline {
                    visible: line.index > 0
                    x: 14
                    width: parent.width - x
                }

                Label {
                    x: 14
                    width: knob.x - x - Theme.gap12
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    size: Theme.row
                    tellsWhole: true
                    text: line.toggle.label
                    Accessible.ignored: true

                    // The words press the switch, too.
                    TapHandler {
                        onTapped: knob.click()
                    }
                }

                Switch {
                    id: knob

                    anchors.right: parent.right
                    anchors.rightMargin: 14
                    anchors.verticalCenter: parent.verticalCenter
                    label: line.toggle.label
                    checked: line.toggle.on
                    onToggled: on => group.toggled(line.toggle.key, on)
                }
            }
        }
    }
}
