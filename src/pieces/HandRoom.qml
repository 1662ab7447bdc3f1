import QtQuick

// Where a control is pressed that is seen smaller than a hand wants. It takes no room beside others.
Item {
    required property Item around

    x: (around.width - width) / 2
    y: (around.height - height) / 2
    width: Math.max(24, around.width)
    height: Math.max(24, around.height)
}
