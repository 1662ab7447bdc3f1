import QtQuick
import Vellix.Notes
import Vellix.Pieces

// Where a note on the whole page is written: a line, until it has the keyboard or holds anything.
Writing {
    id: composer

    required property NotesModel notes

    readonly property composerView view: notes.composer
    readonly property bool focused: activeFocus || picker.open
    readonly property bool open: focused || field.length > 0 || !tags.empty
    readonly property bool canPost: !view.posting && !notes.blank(field.text)

    function take() {
        field.take(Qt.OtherFocusReason);
    }

    function post() {
        InputMethod.commit();
        if (!canPost || !notes.post(field.text, tags))
            return;
        field.text = "";
        // Its button has nothing to post any more.
        take();
    }

    implicitHeight: foot.y + foot.height

    Accessible.role: Accessible.Grouping
    Accessible.name: view.title

    onConfirmed: post()

    Tags {
        id: tags

        notes: composer.notes
    }

    Label {
        id: title

        // A little apart from the notes above.
        y: Theme.gap4
        width: Math.min(implicitWidth, parent.width - (hint.visible ? hint.implicitWidth + Theme.gap8 : 0))
        size: Theme.note
        weight: Font.Medium
        tellsWhole: true
        text: composer.view.title
    }

    Label {
        id: hint

        visible: text !== ""
        anchors.right: parent.right
        anchors.baseline: title.baseline
        size: Theme.small
        color: Theme.faint
        text: composer.view.hint
    }

    TextArea {
        id: field

        y: title.y + title.height + 6
        width: parent.width
        label: "Write a note for the report"
        placeholder: label
        minLines: composer.open ? 2 : 1
        maxLines: composer.open ? 6 : 1
    }

    Item {
        id: foot

        // How far it has come out.
        property real part: composer.open ? 1 : 0

        y: field.y + field.height
        width: parent.width
        height: part * (Math.max(picker.height, 26) + Theme.gap8)
        visible: part > 0
        enabled: composer.open
        clip: part < 1

        Behavior on part {
            Glide {}
        }

        TagPicker {
            id: picker

            y: Theme.gap8
            width: Math.max(0, send.x - Theme.gap8)
            height: implicitHeight
            tags: tags
        }

        // Who is tagged wants the room more.
        Label {
            id: keys

            visible: picker.implicitWidth + Theme.gap8 + implicitWidth <= picker.width
            anchors.right: send.left
            anchors.rightMargin: Theme.gap8
            anchors.verticalCenter: send.verticalCenter
            size: Theme.small
            color: Theme.faint
            text: Theme.keys("⌘↩ to post")
        }

        Pill {
            id: send

            anchors.right: parent.right
            y: Theme.gap8
            width: Math.max(implicitWidth, widest.implicitWidth)
            title: composer.view.post
            icon: "arrow.up"
            filled: true
            color: Theme.accent
            help: keys.visible ? "" : keys.text
            enabled: composer.canPost
            onClicked: composer.post()
        }

        Pill {
            id: widest

            visible: false
            title: composer.view.widest
            icon: send.icon
            filled: true
        }
    }
}
