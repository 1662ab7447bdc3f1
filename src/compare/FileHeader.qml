pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// Which ticket this is, what is known of it, where it lies and what can be done with it. The actions
// stand at the right of the title where there is room, else below it.
Item {
    id: head

    required property FileModel file

    readonly property var header: file.header
    readonly property real inner: width - 2 * Theme.gap24
    readonly property bool wide: name.implicitWidth + Theme.gap8 + pills.width + Theme.gap24
                                 + actions.wanted <= inner

    // At the title, where no key does anything by mistake.
    function takeKeyboard() {
        name.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: Math.max(words.height, wide ? actions.height : 0) + 2 * Theme.gap12

    // Before the links in Tab's order, as to the eye.
    ReviewActions {
        id: actions

        x: head.wide ? head.width - width - Theme.gap24 : Theme.gap24
        y: head.wide ? Theme.gap12 : words.y + title.height + words.spacing
        width: head.wide ? wanted : head.inner
        leading: !head.wide
        file: head.file
    }

    Column {
        id: words

        x: Theme.gap24
        y: Theme.gap12
        width: head.wide ? head.inner - actions.width - Theme.gap24 : head.inner
        spacing: Theme.gap8

        FlowRow {
            id: title

            width: parent.width
            height: implicitHeight
            spacing: Theme.gap8

            Label {
                id: name

                width: Math.min(implicitWidth, words.width)
                size: Theme.title
                weight: Font.Bold
                tellsWhole: true
                text: head.header.heading
                Accessible.role: Accessible.Heading
                Accessible.focusable: activeFocus

                FocusRing {
                    visible: name.activeFocus
                }
            }

            Row {
                id: pills

                spacing: Theme.gap8

                StatusPill {
                    small: true
                    pill: head.header.status
                }

                TrackPill {
                    small: true
                    pill: head.header.track
                }
            }
        }

        // Kept for the actions, which are not moved from parent to parent.
        Item {
            visible: !head.wide
            width: parent.width
            height: actions.height
        }

        Label {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.row
            color: Theme.muted
            text: head.header.summary
        }

        FlowRow {
            visible: facts.count > 0
            width: parent.width
            height: implicitHeight
            spacing: Theme.gap24

            Repeater {
                id: facts

                model: KeyedRows {
                    by: "label"
                    rows: head.header.facts
                }

                FactTile {
                    required property var model

                    label: model.value.label
                    value: model.value.value
                    widest: words.width
                }
            }
        }

        FlowRow {
            visible: links.count > 0
            width: parent.width
            height: implicitHeight
            spacing: Theme.gap8

            Repeater {
                id: links

                model: KeyedRows {
                    by: "label"
                    rows: head.header.links
                }

                LinkPill {
                    required property var value

                    title: value.label
                    icon: value.icon
                    url: value.url
                    widest: Math.min(240, words.width)
                }
            }
        }
    }
}
