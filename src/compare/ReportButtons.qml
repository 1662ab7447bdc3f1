// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
import QtQuick
import Vellix.Compare
import Vellix.Jobs
import Vellix.Pieces

// Asks for a report, or shows it at work. As high in the one as in the other.
Item {
    id: buttons

    required property FileModel file

    readonly property var report: file.report
    readonly property Pressable stop: work.item ? work.item.stop : null

    onStopChanged: handing.restart()

    implicitWidth: report.working ? work.width : make.implicitWidth
    implicitHeight: 28

    // Whichever button comes next gets the keyboard from the one that goes.
    KeyboardHold {
        id: hold

        around: buttons
    }

    // Once all that changes with a button has changed.
    Timer {
        id: handing

        interval: 0
        onTriggered: {
            const next = buttons.report.working ? buttons.stop : make;
            if (!hold.held || !next || !next.visible || !next.enabled || next.visualFocus)
                return;
            next.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Pill {
        id: make

        visible: !buttons.report.working
        anchors.verticalCenter: parent.verticalCenter
        enabled: buttons.report.canMake
        onVisibleChanged: handing.restart()
        raised: true
        title: buttons.report.button
        icon: "doc.richtext"
        onClicked: buttons.file.makeReport()
    }

    Loader {
        id: work

        active: buttons.report.working
        anchors.verticalCenter: parent.verticalCenter
        width: active ? implicitWidth : 0

        sourceComponent: Row {
            readonly property alias stop: stopper

            spacing: Theme.gap8

            ReportProgress {
                text: buttons.report.progress
                onTicked: buttons.file.tick()
            }

            TextButton {
                id: stopper

                anchors.verticalCenter: parent.verticalCenter
                enabled: !buttons.report.stopping
                text: "Stop"
                color: Theme.fore["red"]
                onClicked: buttons.file.stopReport()
            }
        }
    }
}
