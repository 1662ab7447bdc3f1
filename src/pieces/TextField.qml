import QtQuick
import Vellix.Pieces

// A field for a text of one line. `label` is its name. Return in it is its owner's.
Item {
    id: line

    required property string label
    property string placeholder: ""
    property real size: Theme.body
    property alias text: edit.text

    readonly property bool focused: edit.activeFocus
    // What has the keyboard.
    readonly property Item field: edit

    signal confirmed()

    function take(reason: int) {
        edit.forceActiveFocus(reason);
    }

    implicitWidth: 200
    implicitHeight: Math.ceil(edit.implicitHeight) + 14

    UndoKey {
        text: edit
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusRow
        color: Theme.raised
        border.width: 1
        border.color: edit.activeFocus ? Theme.focusLine : Theme.quietFill
    }

    FocusRing {
        visible: edit.activeFocus
        anchors.margins: -1
        around: Theme.radiusRow - 3
    }

    // Around the text, too, the field is pressed.
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.IBeamCursor
        onPressed: mouse => {
            edit.forceActiveFocus(Qt.MouseFocusReason);
            edit.cursorPosition = edit.positionAt(mouse.x - edit.x);
        }
    }

    TextInput {
        id: edit

        x: 9
        width: parent.width - 2 * x
        anchors.verticalCenter: parent.verticalCenter
        activeFocusOnTab: true
        clip: true
        color: Theme.text
        selectionColor: Theme.underWhite(Theme.accent)
        selectedTextColor: Theme.onAccent
        selectByMouse: true
        font.family: Theme.family
        font.pointSize: line.size * Theme.pointsPerPixel

        Accessible.role: Accessible.EditableText
        Accessible.name: line.label
        Accessible.description: line.placeholder === line.label ? "" : line.placeholder
        Accessible.focusable: true

        Keys.onPressed: event => {
            const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
            if (!enter || event.modifiers & ~Qt.KeypadModifier)
                return;
            event.accepted = true;
            if (event.isAutoRepeat)
                return;
            InputMethod.commit();
            line.confirmed();
        }
    }

    Label {
        visible: edit.length === 0 && edit.preeditText === ""
        x: edit.x
        width: edit.width
        anchors.verticalCenter: parent.verticalCenter
        size: line.size
        color: Theme.faint
        text: line.placeholder
        Accessible.ignored: true
    }
}
