import QtQuick

Window {
    width: 1500
    height: 940
    visible: true

    ListView {
        width: 300
        height: parent.height
        model: 12

        delegate: Item {
            id: line

            required property int index

            objectName: "row"
            width: ListView.view.width
            height: 54

            Text {
                anchors.verticalCenter: parent.verticalCenter
                x: 8
                text: "Row " + line.index
            }
        }
    }
}
