import QtQuick
import Vellix.Pieces

// A capsule in a tone's tint, with a text and a symbol, a dashed ring, or neither.
Rectangle {
    id: pill

    property string text: ""
    property string icon: ""
    property bool dashed: false
    property string tone: "gray"
    property bool small: false
    property bool spinning: false
    property string help: ""
    // On a ground that would take from the words.
    property bool bedded: false

    readonly property color ink: Theme.fore[tone] ?? Theme.muted
    readonly property bool ringed: dashed || (icon === "" && spinning)
    readonly property real gap: small ? 4 : 5
    readonly property real sidePadding: small ? 8 : 11
    readonly property real markWidth: icon !== "" && !dashed ? symbol.size : ringed ? ring.width : 0
    readonly property real textLeft: sidePadding + (markWidth > 0 ? markWidth + gap : 0)

    implicitWidth: text === "" ? markWidth + 2 * sidePadding
                               : Math.ceil(textLeft + words.implicitWidth + sidePadding)
    implicitHeight: words.implicitHeight + 2 * (small ? 3 : 5)
    radius: height / 2
    color: Theme.tint[tone] ?? Theme.quietFill

    Accessible.role: Accessible.StaticText
    Accessible.name: text || help
    Accessible.description: text === "" || help === text ? "" : help

    Rectangle {
        visible: pill.bedded
        z: -1
        anchors.fill: parent
        radius: pill.radius
        color: Theme.pillBed
    }

    Symbol {
        id: symbol

        visible: pill.icon !== "" && !pill.dashed
        x: pill.sidePadding
        anchors.verticalCenter: parent.verticalCenter
        anchors.alignWhenCentered: false
        size: pill.small ? 10.5 : 12
        name: pill.icon
        color: pill.ink
    }

    DashedRing {
        id: ring

        visible: pill.ringed
        x: pill.sidePadding
        anchors.verticalCenter: parent.verticalCenter
        anchors.alignWhenCentered: false
        spinning: pill.spinning
        color: pill.ink
    }

    Label {
        id: words

        x: pill.textLeft
        width: Math.max(0, Math.min(implicitWidth, pill.width - pill.textLeft - pill.sidePadding))
        anchors.verticalCenter: parent.verticalCenter
        size: pill.small ? 11.5 : 13
        weight: Font.Medium
        color: pill.ink
        text: pill.text
        Accessible.ignored: true
    }

    ToolTipArea {
        anchors.fill: parent
        text: pill.help
    }
}
