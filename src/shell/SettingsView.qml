pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces
import Vellix.Shell

// Every setting; each takes effect and is kept the moment it changes.
Rectangle {
    id: view

    required property SettingsModel settings
    required property ApproversModel approvers

    implicitWidth: 460
    implicitHeight: content.implicitHeight + 2 * Theme.gap24
    color: Theme.window

    Accessible.role: Accessible.Pane
    Accessible.name: "Settings"

    ScrollArea {
        id: flick

        anchors.fill: parent
        contentHeight: view.implicitHeight
        margin: Theme.gap16

        Column {
            id: content

            x: Theme.gap24
            y: Theme.gap24
            width: parent.width - 2 * x
            spacing: Theme.gap16

            Item {
                width: parent.width
                height: appearance.height

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    size: Theme.row
                    weight: Font.Medium
                    text: "Appearance"
                }

                Segmented {
                    id: appearance

                    anchors.right: parent.right
                    label: "Appearance"
                    options: view.settings.view.appearances
                    current: view.settings.view.appearance
                    onPicked: key => view.settings.setAppearance(key)
                }
            }

            Label {
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.body
                color: Theme.strong.amber
                text: view.settings.view.trouble
                Accessible.role: Accessible.AlertMessage
            }

            Repeater {
                model: view.settings.view.sections.length

                SettingsGroup {
                    required property int index

                    width: content.width
                    section: view.settings.view.sections[index]
                    onToggled: (key, on) => view.settings.set(key, on)
                }
            }

            ApproversSection {
                width: parent.width
                approvers: view.approvers
            }
        }
    }

    ScrollBar {
        view: flick
    }
}
