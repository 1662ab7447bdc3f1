import QtQuick

// Shows what the program shows, and nothing else.
Window {
    id: window

    required property var scene
    required property string pictures
    property int pagesToCome: scene.pictures.filter(one => one.page).length

    width: 1500
    height: 940
    visible: true

    Repeater {
        model: window.scene.boxes

        Rectangle {
            required property var modelData

            x: modelData.x
            y: modelData.y
            z: modelData.z
            width: modelData.w
            height: modelData.h
            opacity: modelData.opacity
            color: modelData.color
            radius: modelData.radius
            border.width: modelData.line ?? 0
            border.color: modelData.lineColor ?? "transparent"
        }
    }

    Repeater {
        model: window.scene.pictures

        Image {
            required property var modelData

            x: modelData.x
            y: modelData.y
            z: modelData.z
            width: modelData.w
            height: modelData.h
            opacity: modelData.opacity
            sourceSize.width: width
            sourceSize.height: height
            fillMode: modelData.fill ? Image.PreserveAspectCrop : Image.PreserveAspectFit
            source: window.pictures + modelData.key
            onStatusChanged: {
                if (status === Image.Ready && modelData.page)
                    --window.pagesToCome;
            }
        }
    }

    Repeater {
        model: window.scene.drawings

        Image {
            required property var modelData

            x: modelData.x
            y: modelData.y
            z: modelData.z
            width: modelData.w
            height: modelData.h
            opacity: modelData.opacity
            sourceSize.width: width
            sourceSize.height: height
            source: "image://symbols/" + modelData.name + modelData.color
        }
    }

    Repeater {
        model: window.scene.words

        Text {
            required property var modelData

            x: modelData.x
            y: modelData.y
            z: modelData.z
            width: modelData.w
            height: modelData.h
            opacity: modelData.opacity
            text: modelData.text
            textFormat: Text.PlainText
            color: modelData.color
            wrapMode: modelData.wrapMode
            elide: modelData.elide
            lineHeight: modelData.lineHeight
            horizontalAlignment: modelData.horizontalAlignment
            verticalAlignment: modelData.verticalAlignment
            font.family: modelData.family
            font.pointSize: modelData.points
            font.weight: modelData.weight
            font.capitalization: modelData.capitalization
        }
    }
}
