import QtQuick
import Vellix.Shell

// Asks for the picture that the person's photo is made of.
FileChooser {
    id: chooser

    required property PhotoModel photo

    title: "Pick a photo for your profile."
    filters: photo.filters
    onChosen: file => photo.choose(file)

    // For nobody, it asks no more.
    Connections {
        target: chooser.photo

        function onEnded() {
            chooser.close();
        }
    }
}
