import QtQuick
import Vellix.Pieces

// A number in digits of equal width; one that is wider than its room is cut short.
Item {
    id: figure

    required property string text
    property real size: Theme.display
    property int weight: Font.Bold
    property color color: Theme.text
    property bool trailing: false

    readonly property bool fits: digits.implicitWidth <= width

    implicitWidth: digits.implicitWidth
    implicitHeight: digits.implicitHeight

    Digits {
        id: digits

        visible: figure.fits
        anchors.right: figure.trailing ? parent.right : undefined
        size: figure.size
        weight: figure.weight
        color: figure.color
        text: figure.text
        Accessible.ignored: true
    }

    Label {
        visible: !figure.fits
        width: parent.width
        size: figure.size
        weight: figure.weight
        color: figure.color
        tellsWhole: true
        text: figure.text
        Accessible.ignored: true
    }
}
