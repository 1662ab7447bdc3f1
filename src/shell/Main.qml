import QtQuick
import Vellix.Board
import Vellix.Compare
import Vellix.Inspector
import Vellix.Pieces
import Vellix.Shell

// The one main window.
Window {
    id: window

    required property RootModel root
    required property SignInModel signIn
    required property BoardModel board
    required property CompareModel compare
    required property InspectorModel inspector
    required property PictureSource pictures

    title: "Vellix"
    width: 1500
    height: 940
    minimumWidth: 760
    minimumHeight: 540
    visible: true
    color: Theme.window

    RootView {
        anchors.fill: parent
        root: window.root
        signIn: window.signIn
        board: window.board
        compare: window.compare
        inspector: window.inspector
        pictures: window.pictures
    }

    Binding {
        target: Theme
        property: "appearance"
        value: window.root.appearance
    }

    Component.onCompleted: root.start()
}
