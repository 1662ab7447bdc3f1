pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Compare
import Vellix.Pieces

// The pages of a ticket, one below the other. One Tab stop: the arrow keys go from page to page, and
// Return opens the one that has the keyboard.
Item {
    id: strip

    required property FileModel file
    required property PictureSource pictures

    implicitWidth: 92

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

        // Where the strip has just been: far from there, it is rushing past.
        property real before: 0
        property bool rushing: false

        // Brings a page into view with its neighbours, gliding there when it is near.
        function reveal(index: int, gliding: bool) {
            if (index < 0 || index >= count)
                return;
            const from = contentY;
            glide.stop();
            for (const row of [index - 1, index + 1, index])
                positionViewAtIndex(Math.max(0, Math.min(row, count - 1)), ListView.Contain);
            const to = contentY;
            if (!gliding || Math.abs(to - from) > height)
                return;
            contentY = from;
            glide.from = from;
            glide.to = to;
            glide.start();
        }
        function follow(gliding: bool) {
            currentIndex = Math.min(strip.file.openPage, count - 1);
            reveal(currentIndex, gliding);
            if (!glide.running)
                laid.restart();
        }
        // The page gets the keyboard before the list makes it the current one: the list would give
        // it the keyboard without the ring.
        function moveTo(index: int) {
            const next = Math.max(0, Math.min(index, count - 1));
            reveal(next, false);
            itemAtIndex(next)?.forceActiveFocus(Qt.TabFocusReason);
            currentIndex = next;
            laid.restart();
        }

        Accessible.role: Accessible.List
        Accessible.name: "Pages"

        onCountChanged: follow(false)
        onHeightChanged: laid.restart()
        onActiveFocusChanged: {
            if (!activeFocus)
                currentIndex = Math.min(strip.file.openPage, count - 1);
        }
        onContentYChanged: {
            if (Math.abs(contentY - before) > height / 2)
                rushing = true;
            before = contentY;
            if (rushing)
                rest.restart();
        }

        Keys.onUpPressed: moveTo(currentIndex - 1)
        Keys.onDownPressed: moveTo(currentIndex + 1)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                moveTo(0);
            else if (event.key === Qt.Key_End)
                moveTo(count - 1);
            else
                return;
            event.accepted = true;
        }

        // Once the pages have their true heights.
        Timer {
            id: laid

            interval: 0
            running: true
            onTriggered: cells.reveal(cells.currentIndex, false)
        }

        Timer {
            id: rest

            interval: 80
            onTriggered: cells.rushing = false
        }

        Glide {
            id: glide

            target: cells
            property: "contentY"
        }

        Connections {
            target: strip.file

            function onOpenPageChanged() {
                cells.follow(true);
            }
        }

        delegate: PageCell {
            required property int index
            required property real tall

            width: 80
            x: 6
            thumbHeight: tall
            pictures: strip.pictures
            passing: cells.rushing
            activeFocusOnTab: index === cells.currentIndex
            onClicked: strip.file.selectPage(index)
        }
    }

    ScrollBar {
        view: cells
    }
}
