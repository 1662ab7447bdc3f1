pragma ComponentBehavior: Bound

import QtQuick
import QtTest
import Vellix.Pieces

// Where the keyboard is, where it was last, and where it came from.
FocusScope {
    id: scene

    width: 200
    height: 200
    focus: true

    Pill { id: beside; title: "Beside" }

    Item {
        id: around

        Pill { id: one; title: "One" }
        TextInput { id: text }

        Repeater {
            id: some

            model: 1

            Pill { title: "Within" }
        }
    }

    KeyboardHold { id: hold; around: around }
    CameFrom { id: from }
    CameFrom { id: other }

    TestCase {
        name: "Keyboard"
        when: windowShown

        function init() {
            some.model = 1;
            beside.visible = true;
            beside.forceActiveFocus();
        }

        function test_isHeldWhereItIsWithin_data() {
            return [
                { tag: "by key", item: one, reason: Qt.TabFocusReason, ringed: true },
                { tag: "by the pointer", item: one, reason: Qt.MouseFocusReason, ringed: false },
                { tag: "in a text", item: text, reason: Qt.MouseFocusReason, ringed: true }
            ];
        }
        function test_isHeldWhereItIsWithin(data) {
            verify(!hold.held);
            compare(hold.inside, null);
            data.item.forceActiveFocus(data.reason);
            verify(hold.held && !hold.lost);
            compare(hold.ringed, data.ringed);
            compare(hold.keyed, data.item);
            compare(hold.inside, data.item);
            verify(hold.isIn(around) && hold.isIn(data.item) && hold.isIn(scene) && !hold.isIn(beside));
            beside.forceActiveFocus();
            verify(!hold.held && !hold.lost);
            compare(hold.keyed, beside);
            compare(hold.inside, null);
        }

        function test_isLostWithWhatHadItAndStillHeld() {
            some.itemAt(0).forceActiveFocus(Qt.TabFocusReason);
            some.model = 0;
            compare(hold.keyed, scene);
            verify(hold.held && hold.ringed && hold.lost);
            one.forceActiveFocus();
            verify(hold.held && !hold.lost);
        }

        function test_isLetGoOnlyFromWithin() {
            hold.letGo();
            verify(beside.activeFocus);
            one.forceActiveFocus();
            hold.letGo();
            verify(!one.focus && !one.activeFocus);
            verify(hold.lost);
        }

        function test_goesBackWithItsRing_data() {
            return [
                { tag: "by key", reason: Qt.TabFocusReason, ringed: true },
                { tag: "by the pointer", reason: Qt.MouseFocusReason, ringed: false }
            ];
        }
        function test_goesBackWithItsRing(data) {
            one.forceActiveFocus(data.reason);
            from.note(scene.Window.activeFocusItem);
            compare(from.item, one);
            compare(from.ringed, data.ringed);
            beside.forceActiveFocus();
            verify(from.giveBack(data.reason));
            verify(one.activeFocus);
            compare(one.visualFocus, data.ringed);
        }

        function test_doesNotGoBackToWhatHasGone_data() {
            return [
                { tag: "out of sight", gone: () => beside.visible = false },
                { tag: "altogether", item: true, gone: () => some.model = 0 }
            ];
        }
        function test_doesNotGoBackToWhatHasGone(data) {
            from.note(data.item ? some.itemAt(0) : beside);
            one.forceActiveFocus();
            data.gone();
            verify(!from.giveBack(Qt.TabFocusReason));
            verify(one.activeFocus);
        }

        function test_goesBackFromWhatTookOver() {
            one.forceActiveFocus(Qt.TabFocusReason);
            from.note(one);
            other.takeOver(from);
            beside.forceActiveFocus();
            verify(!from.giveBack(Qt.TabFocusReason));
            verify(beside.activeFocus);
            verify(other.giveBack(Qt.TabFocusReason));
            verify(one.activeFocus);
        }
    }
}
