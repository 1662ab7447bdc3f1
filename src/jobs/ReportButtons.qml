// A Loader of Qt 6.4 cannot make bound components, so these see their ids unbound.
// qmllint disable unqualified
import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// Asks for a report, or shows it at work. As high in the one as in the other.
Item {
    id: buttons

    required property ReportModel report

    readonly property Pressable stop: (work.item as ReportWork)?.stop ?? null

    onStopChanged: handing.restart()

    implicitWidth: report.area.working ? work.width : make.implicitWidth
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
            const next = buttons.report.area.working ? buttons.stop : make;
            if (!hold.held || !next || !next.visible || !next.enabled || next.visualFocus)
                return;
            next.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Pill {
        id: make

        visible: !buttons.report.area.working
        anchors.verticalCenter: parent.verticalCenter
        enabled: buttons.report.area.canMake
        onVisibleChanged: handing.restart()
        raised: true
        title: buttons.report.area.button
        icon: "doc.richtext"
        onClicked: buttons.report.make()
    }

    Loader {
        id: work

        active: buttons.report.area.working
        anchors.verticalCenter: parent.verticalCenter
        width: active ? implicitWidth : 0

        sourceComponent: ReportWork {
            report: buttons.report
        }
    }
}
