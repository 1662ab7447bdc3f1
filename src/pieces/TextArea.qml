import QtQuick
import Vellix.Pieces

// A field for a text of several lines. It grows with the text from `minLines` to `maxLines`, then
// scrolls. Tab leaves it. `label` is its name; `plain` takes its ground and its ring away.
Item {
    id: area

    required property string label
    property string placeholder: ""
    property int minLines: 1
    property int maxLines: 6
    property bool plain: false
    property real size: Theme.body
    // Esc is not for the shortcuts while the field has the keyboard: it comes as a key.
    property bool takesEscape: false
    property alias text: edit.text
    readonly property alias length: edit.length

    readonly property bool focused: edit.activeFocus
    // What takes the keyboard.
    readonly property Item place: edit
    readonly property real side: plain ? 0 : 9
    readonly property real above: plain ? 0 : 7
    // A text's lines lie on whole pixels.
    readonly property real lineHeight: Math.ceil(line.height)

    function take(reason: int) {
        edit.forceActiveFocus(reason);
    }

    function toEnd() {
        edit.cursorPosition = edit.length;
    }

    function showCaret() {
        const caret = edit.cursorRectangle;
        const most = Math.max(0, scroll.contentHeight - scroll.height);
        const top = Math.min(caret.y, Math.max(scroll.contentY, caret.y + caret.height - scroll.height));
        scroll.contentY = Math.max(0, Math.min(top, most));
    }

    // To where the page above or below begins, or to an end of the text.
    function leap(event: var, to: int) {
        if (event.modifiers & Qt.ShiftModifier)
            edit.moveCursorSelection(to);
        else
            edit.cursorPosition = to;
        event.accepted = true;
    }

    function leave(event: var, forward: bool) {
        const next = edit.nextItemInFocusChain(forward);
        event.accepted = true;
        if (next)
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    implicitWidth: 200
    implicitHeight: Math.ceil(Math.max(minLines * lineHeight, Math.min(edit.contentHeight, maxLines * lineHeight)))
                    + 2 * above

    UndoKey {
        text: edit
    }

    LongText {
        document: edit.textDocument
    }

    FontMetrics {
        id: line

        font: edit.font
    }

    Rectangle {
        visible: !area.plain
        anchors.fill: parent
        radius: Theme.radiusRow
        color: Theme.raised
        border.width: 1
        border.color: edit.activeFocus ? Theme.focusLine : Theme.quietFill
    }

    FocusRing {
        visible: edit.activeFocus && !area.plain
        anchors.margins: -1
        around: Theme.radiusRow - 3
    }

    // Around the text, too, the field is pressed.
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.IBeamCursor
        onPressed: mouse => {
            edit.forceActiveFocus(Qt.MouseFocusReason);
            edit.cursorPosition = edit.positionAt(mouse.x - scroll.x, mouse.y - scroll.y + scroll.contentY);
        }
    }

    Flickable {
        id: scroll

        readonly property bool overflows: contentHeight > height + 0.5

        x: area.side
        y: area.above
        width: area.width - 2 * area.side
        height: area.height - 2 * area.above
        clip: true
        interactive: overflows
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: edit.implicitHeight
        onHeightChanged: area.showCaret()
        onContentHeightChanged: area.showCaret()

        TextEdit {
            id: edit

            width: scroll.width
            activeFocusOnTab: true
            color: Theme.text
            selectionColor: Theme.underWhite(Theme.accent)
            selectedTextColor: Theme.onAccent
            selectByMouse: true
            font.family: Theme.family
            font.pointSize: area.size * Theme.pointsPerPixel
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap

            Accessible.role: Accessible.EditableText
            Accessible.name: area.label
            Accessible.description: area.placeholder === area.label ? "" : area.placeholder
            Accessible.multiLine: true
            Accessible.focusable: true

            onCursorRectangleChanged: area.showCaret()

            // These keys lead about in the text, where there is one, and nowhere else.
            Keys.onShortcutOverride: event => {
                const ends = event.key === Qt.Key_Up || event.key === Qt.Key_Down;
                event.accepted = (ends && length > 0 && event.modifiers & Qt.ControlModifier)
                    || (area.takesEscape && event.key === Qt.Key_Escape);
            }
            Keys.onTabPressed: event => area.leave(event, true)
            Keys.onBacktabPressed: event => area.leave(event, false)
            Keys.onPressed: event => {
                const caret = cursorRectangle;
                const control = event.modifiers & Qt.ControlModifier;
                if (event.key === Qt.Key_PageUp)
                    area.leap(event, positionAt(caret.x, caret.y - scroll.height));
                else if (event.key === Qt.Key_PageDown)
                    area.leap(event, positionAt(caret.x, caret.y + caret.height + scroll.height));
                else if (control && event.key === Qt.Key_Up)
                    area.leap(event, 0);
                else if (control && event.key === Qt.Key_Down)
                    area.leap(event, length);
            }
        }
    }

    Label {
        visible: edit.length === 0 && edit.preeditText === ""
        x: area.side
        y: area.above
        width: area.width - 2 * area.side
        size: area.size
        color: Theme.faint
        text: area.placeholder
        Accessible.ignored: true
    }

    ScrollBar {
        view: scroll
    }
}
