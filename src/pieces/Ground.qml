import QtQuick
import Vellix.Pieces

// The ground of what lies over a page or another view: presses, wheel, pinches, hover and cursor that
// nothing on it takes end here. Lay it under the content, as large as what is seen.
GroundArea {
    // Where the content holds one finger, a second would let what lies behind take both.
    PinchHandler {
        target: null
    }
}
