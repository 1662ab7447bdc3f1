// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 400
    height: 300

    Pillbox { id: full; text: "Approved"; icon: "checkmark.seal"; tone: "green" }
    Pillbox { id: small; text: "Approved"; icon: "checkmark.seal"; tone: "green"; small: true }
    Pillbox { id: bare; text: "Approved" }
    Pillbox { id: turning; text: "Checking"; tone: "blue"; spinning: true }
    Pillbox { id: mute; icon: "wifi.slash"; help: "Offline"; small: true }
    Pillbox { id: odd; text: "Odd"; tone: "plaid" }
    StatusPill { id: status; pill: ({ text: "New", icon: "", tone: "purple", dashed: true }) }
    SeverityPill { id: severity; pill: ({ text: "Fix", icon: "eye", tone: "red", dashed: false }) }
    TrackPill { id: track; pill: ({ text: "Reprint", icon: "sparkles", tone: "gray", dashed: false }) }
    CountBadge { id: badge; text: "7"; filled: true; colour: Theme.fore["red"] }

    TestCase {
        name: "Pills"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function childOf(item, fits) {
            for (let i = 0; i < item.children.length; ++i) {
                if (fits(item.children[i]))
                    return item.children[i];
            }
            return undefined;
        }

        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        function symbolOf(pill) {
            return childOf(pill, child => child instanceof Symbol);
        }

        function wordsOf(pill) {
            return childOf(pill, child => child instanceof Text);
        }

        function test_sizes_data() {
            return [
                { tag: "small", pill: small, symbol: 10.5, text: 11.5, gap: 4, side: 8, top: 3 },
                { tag: "full", pill: full, symbol: 12, text: 13, gap: 5, side: 11, top: 5 }
            ];
        }

        function test_sizes(row) {
            const symbol = symbolOf(row.pill);
            const words = wordsOf(row.pill);
            compare(symbol.size, row.symbol);
            compare(words.size, row.text);
            compare(symbol.x, row.side);
            compare(words.x, row.side + row.symbol + row.gap);
            compare(row.pill.implicitHeight, words.implicitHeight + 2 * row.top);
            verify(Math.abs(row.pill.implicitWidth - (words.x + words.implicitWidth + row.side)) < 1);
            compare(row.pill.radius, row.pill.height / 2);
        }

        function test_sizeReachesTheFace() {
            const words = wordsOf(small);
            compare(words.font.pointSize.toFixed(3), (11.5 * Theme.pointsPerPixel).toFixed(3));
        }

        function test_marks() {
            verify(symbolOf(full).visible);
            verify(!symbolOf(bare).visible);
            verify(!bare.ringed);
            compare(wordsOf(bare).x, 11);
            verify(turning.ringed);
            verify(status.ringed);
            verify(!symbolOf(status).visible);
        }

        function test_spinningTurns() {
            const ring = childOf(turning, child => child instanceof DashedRing);
            compare(ring.width, 10);
            const before = ring.rotation;
            tryVerify(() => ring.rotation !== before);
        }

        function test_namesAreTheWords() {
            compare(probe.accessibleName(full), "Approved");
            compare(probe.accessibleName(mute), "Offline");
            compare(probe.accessibleName(status), "New");
            compare(probe.accessibleName(severity), "Fix");
            compare(probe.accessibleName(track), "Reprint");
            compare(probe.accessibleName(badge), "7");
        }

        function test_unknownToneStaysReadable() {
            verify(odd.ink.a > 0);
        }

        function test_narrowPillElides() {
            full.width = 60;
            verify(wordsOf(full).truncated);
            full.width = full.implicitWidth;
            verify(!wordsOf(full).truncated);
        }
    }
}
