import QtQuick
import Vellix.Pieces

// The pill of one of a record's values.
Pillbox {
    required property pillView pill

    text: pill.text
    icon: pill.icon
    dashed: pill.dashed
    tone: pill.tone
}
