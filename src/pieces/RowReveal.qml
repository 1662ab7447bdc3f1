import QtQuick

// Brings a row of a list into sight together with its neighbours, so that they are there to go to,
// and at either end with the list's own margin, which ListView.Contain leaves out.
QtObject {
    id: reveal

    required property ListView list

    function held(row: int): int {
        return Math.max(0, Math.min(row, list.count - 1));
    }
    // Where the list, standing at `y`, has to stand to have that row in sight, as near as may be; no
    // number while the row is not made.
    function nearest(row: int, y: real): real {
        const item = list.itemAtIndex(row);
        if (!item)
            return NaN;
        const top = item.y - (row === 0 ? list.topMargin : 0);
        const bottom = item.y + item.height + (row === list.count - 1 ? list.bottomMargin : 0);
        return Math.min(top, Math.max(y, bottom - list.height));
    }
    // The same with the neighbours, and last of all the row.
    function placeOf(index: int): real {
        let y = list.contentY;
        for (const row of [index - 1, index + 1, index])
            y = nearest(held(row), y);
        return y;
    }
    // Puts the list there at once, with rows that are still on their way where they will stand.
    // Without any height there is no such place.
    function place(index: int) {
        if (list.count === 0 || list.height <= 0)
            return;
        const last = list.count - 1;
        for (const row of [index - 1, index + 1, index]) {
            // As far as the list goes: its margin counts there.
            const mode = row <= 0 ? ListView.End : row >= last ? ListView.Beginning : ListView.Contain;
            list.positionViewAtIndex(held(row), mode);
        }
    }
}
