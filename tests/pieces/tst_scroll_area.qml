import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 300
    height: 400

    ScrollArea {
        id: area

        width: 300
        height: 400
        contentHeight: column.height

        Column {
            id: column

            width: parent.width

            Rectangle { id: above; width: 100; height: 300 }
            TextField { id: line; width: 200; label: "A line" }
            Rectangle { width: 100; height: 40 }
        }
    }

    TestCase {
        name: "ScrollArea"
        when: windowShown

        function init() {
            above.height = 300;
            area.height = 400;
            tryCompare(line, "y", 300);
            area.contentY = 0;
            line.take(Qt.TabFocusReason);
        }

        function isInSight(): bool {
            const top = line.mapToItem(area, 0, 0).y;
            return top >= 0 && top + line.height <= area.height;
        }

        function test_keepsWhatIsWrittenInInSightAsItShrinks() {
            verify(isInSight());
            area.height = 160;
            tryVerify(isInSight);
        }

        function test_keepsWhatIsWrittenInInSightAsMoreComesAboveIt() {
            above.height = 900;
            tryCompare(line, "y", 900);
            tryVerify(isInSight);
        }

        function test_leavesAloneWhatIsReadElsewhere() {
            line.field.focus = false;
            area.height = 160;
            compare(area.contentY, 0);
        }
    }
}
