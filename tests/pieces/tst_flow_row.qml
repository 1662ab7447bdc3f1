import QtQuick
import QtTest
import Vellix.Pieces

// The row lays itself out anew whatever happens to an item.
Item {
    width: 200
    height: 200

    FlowRow {
        id: row

        width: 100
        height: implicitHeight
        spacing: 10

        Rectangle { id: one; width: 40; height: 20 }
        Rectangle { id: two; width: 40; height: 20 }
        Rectangle { id: three; width: 40; height: 20 }
    }

    Component {
        id: another

        Rectangle { width: 40; height: 20 }
    }

    TestCase {
        name: "FlowRow"
        when: windowShown

        function cleanup() {
            row.width = 100;
            for (const each of [one, two, three]) {
                each.width = 40;
                each.visible = true;
            }
            tryCompare(row, "implicitHeight", 50);
        }

        function test_begins_laid_out() {
            compare(two.x, 50);
            compare(three.x, 0);
            compare(three.y, 30);
            compare(row.implicitWidth, 140);
            compare(row.implicitHeight, 50);
        }

        function test_hidden_and_shown() {
            one.visible = false;
            tryCompare(two, "x", 0);
            compare(three.x, 50);
            compare(row.implicitWidth, 90);
            compare(row.implicitHeight, 20);
            one.visible = true;
            tryCompare(two, "x", 50);
            compare(row.implicitHeight, 50);
        }

        function test_resized() {
            one.width = 60;
            tryCompare(two, "x", 0);
            compare(two.y, 30);
            compare(three.x, 50);
            row.width = 200;
            tryCompare(three, "x", 120);
            compare(row.implicitHeight, 20);
            one.height = 30;
            tryCompare(two, "y", 5);
            compare(row.implicitHeight, 30);
            one.height = 20;
        }

        function test_added_and_removed() {
            const four = another.createObject(row) as Item;
            tryCompare(four, "y", 30);
            compare(four.x, 50);
            compare(row.implicitWidth, 190);
            four.parent = row.parent;
            tryCompare(row, "implicitWidth", 140);
            four.parent = row;
            tryCompare(row, "implicitWidth", 190);
            four.destroy();
            tryCompare(row, "implicitWidth", 140);
        }
    }
}
