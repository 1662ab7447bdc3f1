import Vellix.Pieces

// What concerns the person signed in. Made when it is first opened.
Menu {
    x: parent.width - width
    y: -height - Theme.gap4
    label: "Account"
    entries: [{ key: "signOut", text: "Sign out", enabled: true, shortcut: "" }]
}
