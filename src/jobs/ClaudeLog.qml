pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What Claude is doing, what it did last, and the raw log of a job.
Item {
    id: panel

    required property ClaudeLogModel log

    readonly property claudeLogView told: log.log
    // What the keyboard comes to first; none where there is nothing to do.
    readonly property Item first: scroll.overflows ? scroll : technical.visible ? technical.button : null

    // It is let go of before it is hidden where all of it goes.
    onVisibleChanged: log?.reads(panel, visible)
    Component.onCompleted: log.reads(panel, visible)

    ScrollArea {
        id: scroll

        anchors.fill: parent
        label: "Claude's log"
        contentHeight: column.height

        Column {
            id: column

            width: parent.width
            padding: Theme.gap16
            spacing: Theme.gap16

            readonly property real inner: width - 2 * padding

            Row {
                spacing: Theme.gap12

                ClaudeCritter {
                    anchors.verticalCenter: parent.verticalCenter
                    size: 24
                    busy: panel.log.busy
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    size: Theme.title
                    weight: Font.Bold
                    text: "Claude's log"
                    Accessible.role: Accessible.Heading
                }
            }

            Column {
                visible: syncs.count > 0
                width: column.inner
                spacing: Theme.gap8

                LogHeading {
                    text: panel.told.syncHeading
                }

                Repeater {
                    id: syncs

                    model: KeyedRows {
                        rows: panel.told.sync ? [panel.told.sync] : []
                    }

                    LogCard {
                        required property jobBlockView value

                        width: column.inner
                        job: value
                        onStopped: panel.log.stop(value.key)
                    }
                }
            }

            Repeater {
                model: KeyedRows {
                    rows: panel.told.running
                }

                LogCard {
                    required property jobBlockView value

                    width: column.inner
                    job: value
                    onStopped: panel.log.stop(value.key)
                }
            }

            Column {
                visible: panel.told.reportsHeading !== ""
                width: column.inner
                spacing: Theme.gap4

                Accessible.role: Accessible.List
                Accessible.name: panel.told.reportsHeading

                LogHeading {
                    text: panel.told.reportsHeading
                }

                Repeater {
                    model: KeyedRows {
                        rows: panel.told.reports
                    }

                    ReportRow {
                        required property reportRowView value

                        width: column.inner
                        report: value
                        onOpened: panel.log.open(value.open.report)
                    }
                }
            }

            TechnicalLog {
                id: technical

                // It stays where it is read while what stands above it grows.
                property real stood: y

                onYChanged: {
                    const by = y - stood;
                    // Of which the height of all is told only behind this.
                    const most = scroll.contentHeight + by - scroll.height;
                    if (technical.log.shown && stood < scroll.contentY + scroll.height)
                        scroll.contentY = Math.max(0, Math.min(scroll.contentY + by, most));
                    stood = y;
                }

                visible: technical.log.job !== ""
                width: column.inner
                log: panel.told.technical
                onPressed: panel.log.pressTechnical()
            }
        }
    }

    ScrollBar {
        view: scroll
    }
}
