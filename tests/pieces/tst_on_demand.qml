pragma ComponentBehavior: Bound

import QtQuick
import QtTest
import Vellix.Pieces

// What is made on demand is there at once, and sees the ids around it.
Item {
    id: scene

    property string word: "one"
    property bool wanted: false
    property int made: 0

    width: 200
    height: 200

    Component {
        id: large

        Item { implicitWidth: 90; implicitHeight: 40 }
    }

    Component {
        id: small

        Item { implicitWidth: 30; implicitHeight: 20 }
    }

    Optional {
        id: place

        wanted: scene.wanted

        Label { text: scene.word; Component.onCompleted: scene.made += 1 }
    }

    Optional { id: sized; content: large }

    OnDemand {
        id: menu

        Menu {
            parent: scene
            label: scene.word
            entries: [{ key: "a", text: "A", enabled: true }]
            Component.onCompleted: scene.made += 1
        }
    }

    TestCase {
        name: "OnDemand"
        when: windowShown

        function init() {
            scene.wanted = false;
            scene.word = "one";
            scene.made = 0;
            sized.content = large;
        }

        function test_isThereAsLongAsItIsWanted() {
            compare(place.item, null);
            compare(scene.made, 0);
            scene.wanted = true;
            compare((place.item as Label).text, "one");
            scene.word = "two";
            compare((place.item as Label).text, "two");
            compare(scene.made, 1);
            scene.wanted = false;
            compare(place.item, null);
            compare(place.implicitWidth, 0);
        }

        function test_hasTheSizeOfItsPlace() {
            compare(Qt.size(sized.width, sized.height), Qt.size(90, 40));
            sized.width = 120;
            compare(Qt.size(sized.item.width, sized.item.height), Qt.size(120, 40));
            sized.content = small;
            compare(Qt.size(sized.item.width, sized.item.height), Qt.size(120, 20));
        }

        function test_isMadeWhenItIsFirstAskedForAndKept() {
            compare(menu.object, null);
            const first = menu.made() as Menu;
            compare(first.label, "one");
            compare(menu.made(), first);
            compare(scene.made, 1);
            first.openAt(false);
            verify(first.visible);
            first.close();
        }
    }
}
