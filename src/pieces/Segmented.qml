pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// A few choices side by side, one of them current. `options` is a list of { key, label } with an
// optional `count`, `late`, `countHelp` and `help`. It shows `current` and asks for another by `picked`.
Rectangle {
    id: segments

    required property var options
    required property string current
    property string label: ""
    // Equal parts of the whole width instead of as wide as the words.
    property bool stretched: false
    property bool tabs: false
    property real size: Theme.body
    property real padding: 12

    signal picked(string key)

    readonly property Item thumbTarget: {
        for (let i = 0; i < cells.count; ++i) {
            const cell = cells.itemAt(i) as Pressable;
            if (cell && options[i]?.key === current)
                return cell;
        }
        return null;
    }

    // Words and counts are smaller where one of them is long, and alike in all segments.
    readonly property bool longCounts: {
        for (let i = 0; i < options.length; ++i) {
            if ((options[i].count ?? "").length > 3)
                return true;
        }
        return false;
    }
    readonly property real wordSize: longCounts ? Math.min(size, Theme.small) : size

    // The thumb glides only for a change of choice, not while the first layout settles.
    property bool ready: false
    property bool moved: false
    onCurrentChanged: moved = ready
    Component.onCompleted: ready = true

    function step(index: int, by: int) {
        const next = index + by;
        if (next < 0 || next >= options.length)
            return;
        cells.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
        picked(options[next].key);
    }

    implicitWidth: row.implicitWidth + 4
    implicitHeight: 28
    radius: 8
    color: Theme.trackFill

    Accessible.role: tabs ? Accessible.PageTabList : Accessible.Grouping
    Accessible.name: label

    Rectangle {
        id: thumb

        visible: segments.thumbTarget !== null
        x: segments.thumbTarget ? segments.thumbTarget.x + 2 : 0
        y: 2
        width: segments.thumbTarget ? segments.thumbTarget.width : 0
        height: parent.height - 4
        radius: 6
        color: Theme.thumb
        border.width: 1
        border.color: Theme.hoverFill

        Behavior on x {
            enabled: segments.moved

            NumberAnimation {
                duration: Theme.standard
                easing.type: Easing.BezierSpline
                easing.bezierCurve: Theme.curve
            }
        }
    }

    Row {
        id: row

        x: 2
        y: 2
        height: parent.height - 4

        Repeater {
            id: cells

            // New words for a choice keep its cell: the focus on it, and a press that has begun.
            model: segments.options.length

            Pressable {
                id: cell

                required property int index
                readonly property var modelData: segments.options[index] ?? ({ key: "", label: "" })
                readonly property bool current: modelData.key === segments.current
                readonly property string count: modelData.count ?? ""

                label: modelData.label
                help: modelData.help ?? ""
                radius: 6
                height: row.height
                implicitWidth: Math.ceil(text.wanted + badge.taken) + 2 * segments.padding
                width: segments.stretched ? (segments.width - 4) / segments.options.length : implicitWidth

                Accessible.role: segments.tabs ? Accessible.PageTab : Accessible.RadioButton
                Accessible.description: modelData.countHelp ?? ""
                Accessible.checkable: true
                Accessible.checked: current
                Accessible.selected: current
                // What a radio button offers first.
                Accessible.onToggleAction: cell.click()

                onClicked: segments.picked(modelData.key)
                Keys.onLeftPressed: segments.step(index, -1)
                Keys.onRightPressed: segments.step(index, 1)

                // As wide when it is chosen as when it is not: its neighbours stay where they are.
                Label {
                    id: heavy

                    visible: false
                    size: segments.wordSize
                    weight: Font.DemiBold
                    text: cell.modelData.label
                }

                Row {
                    anchors.centerIn: parent
                    spacing: Theme.gap4

                    Label {
                        id: text

                        readonly property real wanted: Math.max(implicitWidth, heavy.implicitWidth)

                        width: Math.min(wanted, cell.width - badge.taken - 4)
                        horizontalAlignment: Text.AlignHCenter
                        tellsWhole: true
                        anchors.verticalCenter: parent.verticalCenter
                        size: segments.wordSize
                        weight: cell.current ? Font.DemiBold : Font.Medium
                        color: cell.current || cell.hovered ? Theme.text : Theme.muted
                        text: cell.modelData.label
                        Accessible.ignored: true
                    }

                    CountBadge {
                        id: badge

                        readonly property real taken: cell.count === "" ? 0 : implicitWidth + Theme.gap4

                        visible: cell.count !== ""
                        small: segments.longCounts
                        anchors.verticalCenter: parent.verticalCenter
                        outlined: cell.modelData.late ?? false
                        text: cell.count
                        colour: cell.modelData.late ? Theme.fore.red : cell.current ? Theme.text : Theme.muted
                    }
                }
            }
        }
    }
}
