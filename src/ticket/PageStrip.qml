pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Ticket

// The pages of a ticket, one below the other. One Tab stop: the arrow keys go from page to page, and
// Return opens the one that has the keyboard.
Item {
    id: strip

    required property FileModel file
    required property PictureSource pictures

    ListView {
        id: cells

        anchors.fill: parent
        topMargin: Theme.gap8
        bottomMargin: Theme.gap8
        spacing: Theme.gap4
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // A page ahead is made before it comes into view.
        cacheBuffer: 160
        model: strip.file.pages
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        currentIndex: -1

        readonly property alias rushing: motion.rushing

        function openRow(): int {
            return Math.min(strip.file.openPage, count - 1);
        }
        // Makes a page the current one and brings it into view with its neighbours, gliding there
        // when it is near. With `keyed` it gets the keyboard, and the ring, before the list makes it
        // the current one: the list would give it the keyboard without.
        function show(index: int, gliding: bool, keyed: bool) {
            if (index < 0 || index >= count)
                return;
            glide.stop();
            const from = contentY;
            let to = reveal.placeOf(index);
            // Pages that are made are not let go, to be made anew, for a look at where they lie.
            const known = motion.glides(from, to, height, gliding);
            motion.placing = true;
            if (!known) {
                reveal.place(index);
                to = contentY;
            }
            if (keyed)
                itemAtIndex(index)?.forceActiveFocus(Qt.TabFocusReason);
            currentIndex = index;
            const glides = known || motion.glides(from, to, height, gliding);
            if (glides && !known)
                contentY = from;
            motion.placing = false;
            if (!glides)
                return laid.restart();
            glide.from = from;
            glide.to = to;
            glide.start();
        }
        function moveTo(index: int) {
            show(Math.max(0, Math.min(index, count - 1)), false, true);
        }
        // As many pages as there is room for.
        function page(): int {
            return Math.max(1, Math.floor(height / ((currentItem?.height ?? height) + spacing)));
        }

        Accessible.role: Accessible.List
        Accessible.name: "Pages"

        onCountChanged: show(openRow(), false, false)
        onHeightChanged: {
            if (motion.resize(height, contentY, currentItem, glide.running))
                laid.restart();
        }
        onActiveFocusChanged: {
            // A window that others cover for a while comes back as it was.
            if (!activeFocus && Window.active)
                currentIndex = openRow();
        }
        onMovementStarted: glide.stop()
        onContentYChanged: motion.scroll(contentY, height)

        Keys.onPressed: event => {
            if (event.modifiers & ~Qt.KeypadModifier)
                return;
            const by = keys.by(event.key, 1, page(), count);
            if (by === 0)
                return;
            moveTo(currentIndex + by);
            event.accepted = true;
        }

        ListKeys {
            id: keys
        }

        // Once the pages have their true heights.
        Timer {
            id: laid

            interval: 0
            onTriggered: {
                motion.placing = true;
                reveal.place(cells.currentIndex);
                motion.placing = false;
            }
        }

        RowReveal {
            id: reveal

            list: cells
        }

        PageStripMotion {
            id: motion
        }

        Glide {
            id: glide

            target: cells
            property: "contentY"
            // The pages on the way may have grown meanwhile.
            onFinished: laid.restart()
        }

        Connections {
            target: strip.file

            function onOpenPageChanged() {
                cells.show(cells.openRow(), true, cells.activeFocus);
            }
        }

        delegate: PageCell {
            required property int index
            required property real tall

            width: 80
            x: 6
            thumbHeight: tall
            pictures: strip.pictures
            passing: motion.rushing
            activeFocusOnTab: index === cells.currentIndex
            onClicked: strip.file.selectPage(index)
        }
    }

    ScrollBar {
        view: cells
    }
}
