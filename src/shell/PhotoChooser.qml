import QtQuick
import Vellix.Shell

// Asks for the picture that the person's photo is made of.
FileChooser {
    id: chooser

    required property PhotoModel photo

    title: "Pick a photo for your profile."
    onChosen: file => photo.choose(file)

    // What can be read is asked for now: it loads every reader of pictures that there is.
    function open() {
        ask(photo.filters);
    }

    // For nobody, it asks no more.
    Connections {
        target: chooser.photo

        function onEnded() {
            chooser.close();
        }
    }
}
