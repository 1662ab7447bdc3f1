import QtQuick
import Vellix.Approval
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// A ticket that the person has still to review, as the list of tickets has it.
ListRow {
    id: row

    required property int index
    required property string id
    required property string heading
    required property string subline
    required property string thumb
    required property var due
    required property var approval
    required property string spoken
    required property PictureSource pictures

    readonly property bool marked: due !== undefined || approval !== undefined
    // The marks stand below the words.
    readonly property bool narrow: width < 520

    label: spoken
    activeFocusOnTab: false
    implicitHeight: 54 + (narrow && marked ? 26 : 0)

    Rectangle {
        id: thumb

        x: Theme.gap8
        y: Theme.gap8
        width: 30
        height: 38
        radius: 2
        color: Theme.quietFill

        RemoteImage {
            id: picture

            anchors.fill: parent
            pictures: row.pictures
            key: row.thumb
            fill: true
            placeholder: Theme.quietFill
        }

        Repeater {
            model: picture.missing ? 1 : 0

            MissingPicture {
                anchors.fill: thumb
                size: 14
            }
        }
    }

    Column {
        id: words

        anchors.left: thumb.right
        anchors.leftMargin: Theme.gap12
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12 + chevron.width + (row.narrow ? 0 : marks.width + Theme.gap12)
        y: row.subline === "" && !row.narrow ? 18 : 10
        spacing: 2

        Label {
            width: parent.width
            size: Theme.row
            weight: Font.DemiBold
            tellsWhole: true
            text: row.heading
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            size: Theme.small
            color: Theme.faint
            tellsWhole: true
            text: row.subline
            Accessible.ignored: true
        }
    }

    Row {
        id: marks

        readonly property real room: row.narrow ? words.width : row.width * 0.45

        x: row.narrow ? words.x : chevron.x - width - Theme.gap12
        y: row.narrow ? 52 : (row.height - height) / 2
        spacing: Theme.gap8

        Loader {
            active: row.approval !== undefined
            visible: active
            anchors.verticalCenter: parent.verticalCenter

            sourceComponent: ApprovalPill {
                small: true
                pill: row.approval
                width: Math.min(implicitWidth, marks.room / 2)
                Accessible.ignored: true
            }
        }

        Loader {
            active: row.due !== undefined
            visible: active
            anchors.verticalCenter: parent.verticalCenter

            sourceComponent: DueChip {
                due: row.due
                width: Math.min(implicitWidth, marks.room / 2)
                Accessible.ignored: true
            }
        }
    }

    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap8
        anchors.verticalCenter: parent.verticalCenter
        size: 13
        name: "chevron.right"
        color: Theme.faint
    }
}
