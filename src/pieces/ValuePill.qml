import QtQuick
import Vellix.Pieces

// The pill of one of a record's values. `pill` is a PillView.
Pillbox {
    required property var pill

    text: pill.text
    icon: pill.icon
    dashed: pill.dashed
    tone: pill.tone
}
