import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// Asks for a report, or shows it at work. As high in the one as in the other.
Item {
    id: buttons

    required property ReportModel report

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
            const next = buttons.report.area.working ? work.stop : make;
            if (!hold.held || !next.visible || !next.enabled || next.visualFocus)
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

    ReportWork {
        id: work

        visible: buttons.report.area.working
        anchors.verticalCenter: parent.verticalCenter
        report: buttons.report
    }
}
