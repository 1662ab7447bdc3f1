pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The buttons and controls of the developer's sheet, pressed for nothing.
Column {
    id: buttons

    readonly property var views: [{ key: "side", label: "Side by side" }, { key: "overlay", label: "Overlay" },
                                  { key: "blink", label: "Blink", count: "3" }]

    spacing: Theme.gap16

    LabSection {
        width: parent.width
        title: "Pills to press"

        Pill { title: "Post"; icon: "arrow.up"; color: Theme.accent; filled: true }
        Pill { title: "Mark reviewed"; icon: "checkmark"; color: Theme.success; filled: true }
        Pill { title: "Withdraw"; icon: "xmark"; color: Theme.strong.red }
        Pill { title: "Share"; icon: "link"; raised: true }
        Pill { title: "Make report"; icon: "doc.richtext"; enabled: false }
        LinkPill { title: "Email"; icon: "envelope"; url: "mailto:renny@tessarine.example" }
        LinkPill { title: "Folder"; icon: "folder" }
    }

    LabSection {
        id: big

        width: parent.width
        title: "Big buttons"

        Repeater {
            model: [
                { title: "Sync", icon: "arrow.triangle.2.circlepath" },
                { title: "Sync", icon: "arrow.triangle.2.circlepath", busy: true },
                { title: "Sync", icon: "arrow.triangle.2.circlepath", disabled: true },
                { title: "Update now", icon: "arrow.down", prominent: true },
                { title: "Update now", icon: "arrow.down", prominent: true, busy: true }
            ]

            BigButton {
                required property var modelData
                width: big.width - 2 * big.padding
                title: modelData.title
                icon: modelData.icon
                busy: modelData.busy ?? false
                disabled: modelData.disabled ?? false
                prominent: modelData.prominent ?? false
            }
        }
    }

    LabSection {
        width: parent.width
        title: "Small controls"
        gap: Theme.gap12

        IconButton { symbol: "gearshape"; help: "Settings" }
        IconButton { symbol: "sidebar.right"; help: "Hide notes"; checked: true }
        IconButton { symbol: "chevron.right"; help: "Next page"; enabled: false }
        TextButton { text: "Stop" }
        TextButton { text: "Stop"; enabled: false }
        CheckBox {
            text: "Only mine"
            checked: true
            onToggled: value => checked = value
        }
        CheckBox { text: "Only mine"; enabled: false }
        Switch {
            label: "Urgent"
            checked: true
            onToggled: value => checked = value
        }
        Switch { label: "Urgent"; enabled: false }
        Slider {
            label: "Zoom"
            from: 1
            to: 4
            level: 2
            onMoved: value => level = value
        }
        Segmented {
            label: "View"
            options: buttons.views
            current: "overlay"
            onPicked: key => current = key
        }
    }

    LabSection {
        width: parent.width
        title: "Toasts"

        ToastView { text: "Link copied."; undoLabel: ""; widest: parent.width }
        ToastView { text: "Marked a real issue."; undoLabel: "Undo"; widest: parent.width }
    }
}
