import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces

// A sheet over the middle of the window: a title, what is asked for, and the buttons that end it.
// Nothing else is pressed meanwhile. Return is the one that `confirm` names, Esc is "Cancel"; both
// are the owner's to act on. What is higher than the window scrolls between title and buttons.
Popover {
    id: sheet

    required property string confirm
    property string confirmIcon: ""
    property bool canConfirm: true
    // What the confirming button was seen to be about.
    property var says: null
    // Why it cannot be confirmed any more.
    property string trouble: ""
    property real widest: 460
    default property alias parts: column.data

    signal confirmed()

    function press() {
        InputMethod.commit();
        if (canConfirm)
            confirmed();
    }

    // By Return, which is not meant for what nobody can have read.
    function pressByKey() {
        if (!unread)
            press();
    }

    // Behind words that were written in it Return is no second press.
    function written() {
        justOpened.stop();
    }

    // Within two quick presses of its opening, or of a change of the words under the finger.
    readonly property bool unread: justOpened.running || justChanged.running

    readonly property Timer justOpened: Timer {
        interval: Application.styleHints.mouseDoubleClickInterval
    }

    readonly property Timer justChanged: Timer {
        interval: Application.styleHints.mouseDoubleClickInterval
    }

    onSaysChanged: {
        if (visible)
            justChanged.restart();
    }
    onAboutToShow: {
        justChanged.stop();
        justOpened.restart();
    }

    readonly property Item over: T.Overlay.overlay
    readonly property real room: (over?.height ?? 0) - 2 * Theme.gap24

    anchors.centerIn: T.Overlay.overlay
    width: Math.min(widest, (over?.width ?? widest) - 2 * Theme.gap24)
    height: Math.min(implicitHeight, room)
    padding: Theme.gap24
    closePolicy: T.Popup.CloseOnEscape
    byKey: true

    T.Overlay.modal: Ground {
        Rectangle {
            anchors.fill: parent
            color: Theme.scrim
        }
    }

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        implicitHeight: body.y + body.contentHeight + foot.height
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.label

        Keys.onPressed: event => {
            const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
            if (!enter || event.modifiers & ~Qt.KeypadModifier)
                return;
            event.accepted = true;
            if (!event.isAutoRepeat)
                sheet.pressByKey();
        }

        Label {
            id: heading

            width: parent.width
            size: Theme.title
            weight: Font.Bold
            tellsWhole: true
            text: sheet.label
            Accessible.role: Accessible.Heading
        }

        ScrollArea {
            id: body

            // Room for the ring of the keyboard, which would be cut off.
            readonly property real air: 4

            x: -air
            y: heading.height + Theme.gap8 - air
            width: parent.width + 2 * air
            height: parent.height - y - foot.height
            contentHeight: column.implicitHeight + 2 * air

            Column {
                id: column

                x: body.air
                y: body.air
                width: body.width - 2 * body.air
                spacing: Theme.gap12
            }
        }

        ScrollBar {
            view: body
        }

        Item {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            height: buttons.height + Theme.gap16

            Label {
                anchors.left: parent.left
                anchors.right: buttons.left
                anchors.rightMargin: Theme.gap12
                anchors.verticalCenter: buttons.verticalCenter
                visible: text !== ""
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
                size: Theme.note
                color: Theme.strong.amber
                tellsWhole: true
                text: sheet.trouble
                Accessible.role: Accessible.AlertMessage
            }

            Row {
                id: buttons

                anchors.right: parent.right
                anchors.bottom: parent.bottom
                spacing: Theme.gap8

                Pill {
                    title: "Cancel"
                    onClicked: sheet.close()
                }

                Pill {
                    title: sheet.confirm
                    icon: sheet.confirmIcon
                    filled: true
                    color: Theme.accent
                    enabled: sheet.canConfirm
                    says: sheet.says
                    onClicked: sheet.press()
                }
            }
        }
    }
}
