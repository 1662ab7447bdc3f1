// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 300
    height: 200

    Column {
        width: parent.width

        TextField { id: address; width: 200; label: "Address"; placeholder: "name@company.example" }
        TextField { id: called; width: 200; label: "Name"; placeholder: label }
    }

    SignalSpy { id: confirmed; target: address; signalName: "confirmed" }

    TestCase {
        name: "TextField"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function init() {
            address.text = "";
            called.take(Qt.TabFocusReason);
            confirmed.clear();
        }

        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        function shows(item: Item, text: string): bool {
            return item.visible && ((item as Label)?.text === text
                                    || Array.from(item.children).some(child => shows(child, text)));
        }

        function test_tellsWhatIsWanted() {
            compare(probe.accessibleName(address.field), "Address");
            compare(address.field.Accessible.description, "name@company.example");
            compare(called.field.Accessible.description, "", "Its name is said already.");
        }

        function test_showsWhatIsWantedUntilItIsWritten() {
            const hint = () => shows(address, "name@company.example");
            verify(hint());
            address.text = "m";
            verify(!hint());
            address.text = "";
            verify(hint());
        }

        function test_isPressedAroundItsTextToo() {
            verify(!address.focused);
            mouseClick(address, 3, 3);
            verify(address.focused);
            keyClick("m");
            compare(address.text, "m");
        }

        function test_handsReturnOn_data() {
            return [
                { tag: "Return", key: Qt.Key_Return, with: Qt.NoModifier, times: 1 },
                { tag: "Enter", key: Qt.Key_Enter, with: Qt.KeypadModifier, times: 1 },
                { tag: "with Control", key: Qt.Key_Return, with: Qt.ControlModifier, times: 0 },
                { tag: "another key", key: Qt.Key_Space, with: Qt.NoModifier, times: 0 }
            ];
        }

        function test_handsReturnOn(each) {
            address.take(Qt.TabFocusReason);
            keyClick(each.key, each.with);
            compare(confirmed.count, each.times);
        }

        function test_goesOnByTab() {
            address.take(Qt.TabFocusReason);
            keyClick(Qt.Key_Tab);
            verify(called.focused);
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            verify(address.focused);
        }
    }
}
