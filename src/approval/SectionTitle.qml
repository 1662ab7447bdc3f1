import QtQuick
import Vellix.Pieces

// The small heading over a part of a sheet or a panel.
Label {
    size: Theme.tiny
    weight: Font.Bold
    color: Theme.muted
    font.letterSpacing: 0.5
    Accessible.role: Accessible.Heading
}
