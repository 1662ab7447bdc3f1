import QtQuick
import QtTest
import Vellix.Pieces

// Twenty rows of 50 with gaps of 4, in a room of 200; 8 over the first one, and 16 under the last.
Item {
    id: scene

    width: 100
    height: 200

    ListView {
        id: view

        width: 100
        height: 200
        topMargin: 8
        bottomMargin: 16
        spacing: 4
        cacheBuffer: 0
        model: 20

        delegate: Item {
            width: 100
            height: 50
        }

        RowReveal {
            id: reveal

            list: view
        }
    }

    TestCase {
        name: "RowReveal"
        when: windowShown

        function init() {
            view.model = 20;
            view.height = 200;
        }

        function test_stand_data() {
            return [
                { tag: "the first, at the margin", from: -8, row: 0, to: -8 },
                { tag: "the first, at its own top", from: 0, row: 0, to: -8 },
                { tag: "the second, beside the first", from: 0, row: 1, to: -8 },
                { tag: "the third, in sight with its neighbours", from: 0, row: 2, to: 12 },
                { tag: "one in sight", from: 100, row: 3, to: 100 },
                { tag: "one that is cut off above", from: 220, row: 4, to: 162 },
                { tag: "one that is cut off below", from: 100, row: 5, to: 174 },
                { tag: "one above", from: 600, row: 5, to: 216 },
                { tag: "one far below", from: -8, row: 15, to: 714 },
                { tag: "the last but one", from: -8, row: 18, to: 892 },
                { tag: "the last", from: -8, row: 19, to: 892 },
                { tag: "the last, at its own end", from: 876, row: 19, to: 892 },
                { tag: "the first, from the end", from: 892, row: 0, to: -8 },
            ];
        }

        function test_stand(data) {
            view.contentY = data.from;
            view.forceLayout();
            const known = reveal.placeOf(data.row);
            if (!isNaN(known))
                compare(known, data.to);
            reveal.place(data.row);
            compare(view.contentY, data.to);
            reveal.place(data.row);
            compare(view.contentY, data.to);
        }

        function test_tellNoPlaceOfWhatIsNotMade() {
            view.contentY = -8;
            view.forceLayout();
            verify(isNaN(reveal.placeOf(15)));
            compare(view.contentY, -8);
        }

        function test_showTheRowItselfWhereThereIsNoMoreRoom() {
            view.height = 60;
            reveal.place(10);
            verify(view.contentY <= 540 && view.contentY >= 530, view.contentY);
        }

        function test_keepTheMarginOfFewRows() {
            view.model = 2;
            view.contentY = 0;
            reveal.place(1);
            compare(view.contentY, -8);
        }

        function test_doNothingWithoutRows() {
            view.model = 0;
            reveal.place(0);
            compare(view.count, 0);
        }
    }
}
