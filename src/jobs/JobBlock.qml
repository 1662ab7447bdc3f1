import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What one job on the Mac mini is at, or what became of it.
Column {
    id: block

    required property jobBlockView job

    signal stopped()

    readonly property bool runs: job.kind === "running"

    spacing: Theme.gap8

    JobHead {
        visible: block.job.kind === "queued" || block.job.kind === "stuck"
        width: parent.width
        job: block.job
    }

    Item {
        visible: block.runs
        width: parent.width
        height: Math.max(critter.height, line.height)

        ClaudeCritter {
            id: critter

            anchors.verticalCenter: parent.verticalCenter
            size: 15
            busy: block.runs
        }

        WorkingLine {
            id: line

            anchors.left: critter.right
            anchors.leftMargin: Theme.gap8
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    Label {
        visible: block.runs && text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        lineHeight: 1.2
        size: Theme.body
        color: Theme.muted
        text: block.job.line
    }

    StepsList {
        visible: block.runs && list.rows.length > 0
        width: parent.width
        list: block.job.steps
    }

    JobFooter {
        visible: block.job.stopKey !== ""
        width: parent.width
        job: block.job
        onStopped: block.stopped()
    }

    ResultBlock {
        visible: block.job.kind === "result"
        width: parent.width
        result: block.job.result
    }
}
