import QtQuick
import Vellix.Approval
import Vellix.Pieces

// One version: its number, whose it is, and how its check stands.
Pressable {
    id: button

    required property versionChipView chip

    label: chip.spoken
    help: chip.help
    radius: height / 2
    implicitWidth: Math.ceil(row.implicitWidth) + 4 + Theme.gap12
    implicitHeight: 26

    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: chip.selected
    // What a radio button offers first.
    Accessible.onToggleAction: button.click()

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: button.chip.selected ? Theme.selectedFill : button.hovered ? Theme.hoverFill : "transparent"
    }

    Row {
        id: row

        x: 4
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Rectangle {
            width: Math.max(height, badge.implicitWidth + 10)
            height: 18
            anchors.verticalCenter: parent.verticalCenter
            radius: height / 2
            color: button.chip.selected ? Theme.underWhite(Theme.accent) : Theme.quietFill

            Label {
                id: badge

                anchors.centerIn: parent
                size: Theme.tiny
                weight: Font.DemiBold
                color: button.chip.selected ? Theme.onAccent : Theme.muted
                text: button.chip.badge
                Accessible.ignored: true
            }
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), 180)
            tellsWhole: true
            size: Theme.note
            color: button.chip.selected ? Theme.text : Theme.muted
            text: button.chip.caption
            Accessible.ignored: true
        }

        Spinner {
            visible: button.chip.checking
            anchors.verticalCenter: parent.verticalCenter
            size: 11
            Accessible.ignored: true
        }

        Symbol {
            visible: button.chip.failed
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            name: "exclamationmark.circle.fill"
            color: Theme.fore.red
        }
    }
}
