// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    width: 400
    height: 300

    Label { id: line; width: 300 }
    Label { id: lines; width: 300; wrapMode: Text.Wrap; maximumLineCount: 3 }
    Label { id: running; width: 300; wrapMode: Text.Wrap }
    Digits { id: digits; text: "p12 · 3 of 40" }

    TestCase {
        name: "Label"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        function test_layOutNoMoreThanIsRead_data() {
            return [
                { tag: "a line", label: line, most: 1000 },
                { tag: "three lines", label: lines, most: 3000 },
                { tag: "a running text", label: running, most: 20000 }
            ];
        }

        function test_layOutNoMoreThanIsRead(each) {
            const label = each.label;
            const fits = "a".repeat(each.most);
            label.text = fits;
            compare(label.laidOut, fits);
            for (const endless of ["a".repeat(1000000), "proof ".repeat(200000)]) {
                label.text = endless;
                compare(label.laidOut, endless.slice(0, each.most) + "…");
                compare(probe.accessibleName(label), label.laidOut);
                verify(label.text === endless, "The text itself is whole.");
            }
            label.text = "a".repeat(each.most - 1) + "\ud83d\ude00".repeat(2);
            compare(label.laidOut, "a".repeat(each.most - 1) + "…", "No emoji is cut in half.");
            label.text = "Short again";
            compare(label.laidOut, "Short again");
        }

        function test_lookForTheEndOfNoEndlessWord() {
            running.text = "proof ".repeat(10000);
            compare(running.broken, Text.Wrap);
            running.text = "a proof " + "a".repeat(1000) + " of the day";
            compare(running.broken, Text.WrapAnywhere);
            verify(running.paintedWidth <= running.width);
            running.text = "a proof of the day";
            compare(running.broken, Text.Wrap);
            line.text = "a".repeat(2000);
            compare(line.broken, Text.NoWrap);
            compare(line.lineCount, 1);
        }

        function test_makeNoItemOfEachDigitOfAnEndlessNumber() {
            compare(digits.runs, ["p", "1", "2", " · ", "3", " of ", "4", "0"]);
            const endless = "1".repeat(1000000);
            digits.text = endless;
            compare(digits.runs.length, 1);
            tryVerify(() => digits.implicitWidth > 300);
            compare(probe.accessibleName(digits), endless);
            digits.text = "p12 · 3 of 40";
            compare(digits.runs.length, 8);
        }
    }
}
