import QtQuick
import Vellix.Pieces

// A text in the middle of its room. Its lines are about as long as one another, so that no word is
// left over for the last.
Label {
    id: centred

    // At each side of the lines, which are no more than the room asks for.
    property real spare: 0

    function balance() {
        const room = Math.floor(width);
        spare = room > 0 && laidOut !== "" ? (room - trial.leastIn(room)) / 2 : 0;
    }

    onWidthChanged: balance()
    Component.onCompleted: balance()

    horizontalAlignment: Text.AlignHCenter
    wrapMode: Text.Wrap
    leftPadding: spare
    rightPadding: spare

    // Goes to another line between words alone, so that a room too narrow for one shows.
    Words {
        id: trial

        function linesIn(room: real): int {
            width = room;
            return lineCount;
        }

        // The least room that takes as many lines.
        function leastIn(room: real): real {
            const lines = linesIn(room);
            if (lines < 2 || lines > centred.maximumLineCount || contentWidth > room)
                return room;
            let tooLittle = 0;
            let enough = room;
            while (enough - tooLittle > 1) {
                const half = Math.floor((tooLittle + enough) / 2);
                if (linesIn(half) <= lines && contentWidth <= half)
                    enough = half;
                else
                    tooLittle = half;
            }
            return enough;
        }

        visible: false
        laidOut: centred.laidOut
        broken: Text.WordWrap
        font: centred.font
        onLaidOutChanged: centred.balance()
        onFontChanged: centred.balance()
        Accessible.ignored: true
    }
}
