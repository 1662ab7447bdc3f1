import QtQuick
import Vellix.Pieces

// The small heading over a part of the log.
Label {
    visible: text !== ""
    size: Theme.tiny
    weight: Font.DemiBold
    color: Theme.muted
    font.capitalization: Font.AllUppercase
    font.letterSpacing: 0.5
    Accessible.role: Accessible.Heading
}
