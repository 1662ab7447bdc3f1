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
    CentredLabel { id: centred; size: 12 }
    Label { id: plain; wrapMode: Text.Wrap; size: 12; font: centred.font }

    TestCase {
        name: "Label"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        // A cell's digit becomes a letter and back.
        function test_digitsTakeAnyOtherText() {
            const shown = digits.text;
            for (const text of ["999", "p1 · 1 of 120", "iii", "12", "p12 · 3 of 40", "99999999", "abcdefgh1", shown]) {
                digits.text = text;
                wait(0);
                verify(digits.implicitWidth > 0);
            }
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

        function test_leaveNoWordOverForTheLastLine_data() {
            return [
                { tag: "no reference", text: "The sync couldn't find one to compare with." },
                { tag: "an empty board", text: "Press Sync. Claude on the Mac mini checks supplier mail for new proofs." },
                { tag: "an empty list", text: "Press Sync to check supplier mail." },
                { tag: "a filter", text: "Turn off Only mine to see everyone's." },
                { tag: "the ring", text: "Reviewed within 48 hours of coming in, or the same day when urgent." }
            ];
        }

        // The last line as it is laid out, by the widths of the words that end the text.
        function wordsOnTheLastLine(label: var): int {
            let lines = 0;
            let last = "";
            const room = label.width - label.leftPadding - label.rightPadding;
            const measure = text => { line.size = label.size; line.text = text; return line.contentWidth; };
            let started = "";
            for (const word of label.text.split(" ")) {
                const longer = started === "" ? word : started + " " + word;
                started = measure(longer) > room ? word : longer;
            }
            return started.split(" ").length;
        }

        function test_leaveNoWordOverForTheLastLine(each) {
            centred.text = each.text;
            plain.text = each.text;
            let left = 0;
            for (let room = 120; room <= 440; room += 4) {
                centred.width = plain.width = room;
                compare(centred.lineCount, plain.lineCount, "no more lines than there are, at " + room);
                verify(centred.leftPadding >= 0 && centred.leftPadding === centred.rightPadding);
                if (centred.lineCount > 1)
                    verify(wordsOnTheLastLine(centred) > 1, "at " + room);
                left += plain.lineCount > 1 && wordsOnTheLastLine(plain) === 1 ? 1 : 0;
            }
            verify(left > 0, "It happens where nothing is done about it.");
        }

        function test_centreWhatCannotBeBalanced() {
            for (const text of ["", "One", "a".repeat(400), "a " + "b".repeat(400)]) {
                centred.text = text;
                for (const room of [0, 1, 80]) {
                    centred.width = room;
                    compare(centred.spare, 0);
                }
            }
            centred.text = "One two three four";
            centred.width = 60;
            const spare = centred.spare;
            verify(spare > 0);
            centred.text = "One";
            compare(centred.spare, 0);
            centred.text = "One two three four";
            compare(centred.spare, spare);
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
