// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    property int under: 0

    width: 640
    height: 400

    Pill { id: opener; title: "Send"; onClicked: scene.under += 1 }

    Sheet {
        id: sheet

        property real more: 0

        parent: scene
        label: "Send v2"
        confirm: "Send"
        first: line.field

        TextField { id: line; width: parent.width; label: "A line" }
        Item { width: 10; height: sheet.more }
    }

    SignalSpy { id: confirmed; target: sheet; signalName: "confirmed" }

    TestCase {
        name: "Sheet"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function init() {
            sheet.canConfirm = true;
            sheet.trouble = "";
            sheet.more = 0;
            scene.under = 0;
            confirmed.clear();
            opener.forceActiveFocus(Qt.TabFocusReason);
            sheet.open();
            tryVerify(() => sheet.opened);
        }

        function rest() {
            tryVerify(() => !sheet.unread);
        }

        function cleanup() {
            sheet.close();
            tryVerify(() => !sheet.visible);
            compare(probe.takeWarnings(), []);
        }

        function shows(item: Item, text: string): bool {
            return item.visible && ((item as Label)?.text === text
                                    || Array.from(item.children).some(child => shows(child, text)));
        }

        function test_beginsInItsFirstField() {
            verify(line.focused);
        }

        function test_isConfirmedByReturnWhileItMay() {
            sheet.canConfirm = false;
            line.field.focus = false;
            sheet.contentItem.forceActiveFocus();
            rest();
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 0);
            sheet.canConfirm = true;
            keyClick(Qt.Key_Return, Qt.ShiftModifier);
            compare(confirmed.count, 0);
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 1);
            verify(sheet.opened, "To close it is the owner's.");
        }

        function test_isNotConfirmedByTheKeyThatOpenedIt() {
            line.field.focus = false;
            sheet.contentItem.forceActiveFocus();
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 0);
            rest();
            sheet.says = "other words";
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 0, "Nobody can have read them.");
            rest();
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 1);
        }

        function test_isConfirmedByReturnBehindWordsWrittenInIt() {
            line.field.focus = false;
            sheet.contentItem.forceActiveFocus();
            sheet.written();
            keyClick(Qt.Key_Return);
            compare(confirmed.count, 1);
        }

        function test_isCancelledByEsc() {
            keyClick(Qt.Key_Escape);
            tryVerify(() => !sheet.visible);
            compare(confirmed.count, 0);
            verify(opener.activeFocus, "The keyboard goes back to where it was.");
        }

        function test_letsNothingBeneathBePressed() {
            mouseClick(opener);
            compare(scene.under, 0);
            verify(sheet.opened, "A press beside it does not lose what is written.");
        }

        function test_saysWhyItCannotBeConfirmed() {
            verify(!shows(sheet.contentItem, "It has gone."));
            sheet.trouble = "It has gone.";
            verify(shows(sheet.contentItem, "It has gone."));
        }

        function test_keepsItsButtonsInALowWindow() {
            sheet.more = 2000;
            tryVerify(() => sheet.height < scene.height);
            verify(shows(sheet.contentItem, "Cancel") && shows(sheet.contentItem, "Send"));
            verify(sheet.y >= 0 && sheet.y + sheet.height <= scene.height);
        }
    }
}
