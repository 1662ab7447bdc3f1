import QtQuick
import Vellix.Pieces

// The standard animation of all that moves the layout.
NumberAnimation {
    duration: Theme.standard
    easing.type: Easing.BezierSpline
    easing.bezierCurve: Theme.curve
}
