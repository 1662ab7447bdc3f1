pragma ComponentBehavior: Bound

import QtQuick
import QtTest
import Vellix.Pieces

// What is made on demand is there at once, and sees the ids around it.
Item {
    id: scene

    property string word: "one"
    property int made: 0

    width: 200
    height: 200

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
            scene.made = 0;
        }

        function test_isMadeWhenItIsFirstAskedForAndKept() {
            compare(menu.object, null);
            const first = menu.made() as Menu;
            compare(first.label, "one");
            compare(menu.made(), first);
            compare(scene.made, 1);
            scene.word = "two";
            compare(first.label, "two");
            first.openAt(false);
            verify(first.visible);
            first.close();
        }
    }
}
