import QtQuick

// An item that is there only while it is wanted; it has the size of its place, which unless told
// otherwise is the item's own. What looks at its size while it is made says it itself as well. A
// Loader of Qt 6.4 could not make what is bound to the ids around it.
FocusScope {
    id: place

    property bool wanted: true
    property Item item: null
    default property alias content: maker.delegate

    implicitWidth: item?.implicitWidth ?? 0
    implicitHeight: item?.implicitHeight ?? 0

    Repeater {
        id: maker

        model: place.wanted ? 1 : 0
        onItemAdded: (index, item) => {
            item.width = Qt.binding(() => place.width);
            item.height = Qt.binding(() => place.height);
            place.item = item;
        }
        onItemRemoved: place.item = null
    }
}
