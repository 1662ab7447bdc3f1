// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 400
    height: 300

    Component {
        id: avatars

        Avatar {
            who: ({ letter: "r", color: "", photo: "", help: "Renny Vale" })
            pictures: null
        }
    }
    Component {
        id: pills

        Pill {
            title: "Share"
            icon: "link"
        }
    }
    Component {
        id: buttons

        BigButton {
            title: "Sync"
            icon: "arrow.triangle.2.circlepath"
        }
    }
    Component {
        id: pillboxes

        Pillbox {
            text: "New"
        }
    }

    TestCase {
        name: "Looks"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        function everySeen(item, fits) {
            let found = [];
            for (let i = 0; i < item.children.length; ++i) {
                const child = item.children[i];
                if (!child.visible)
                    continue;
                if (fits(child))
                    found.push(child);
                found = found.concat(everySeen(child, fits));
            }
            return found;
        }

        function words(item) {
            return everySeen(item, child => child instanceof Label && child.text !== "")[0];
        }

        function rounds(item) {
            return everySeen(item, child => child instanceof Rectangle);
        }

        function isColour(actual, expected) {
            compare(actual.toString(), expected.toString());
        }

        function test_anAvatarIsALetterOnItsColour_data() {
            return [
                { tag: "muted without a colour", color: "", ink: Theme.muted, size: 30 },
                { tag: "its own colour", color: "#7442e8", ink: Qt.color("#7442e8"), size: 16 }
            ];
        }

        function test_anAvatarIsALetterOnItsColour(row) {
            const who = { letter: "r", color: row.color, photo: "", help: "Renny Vale" };
            const avatar = createTemporaryObject(avatars, scene, { who: who, size: row.size });
            const letter = words(avatar);
            compare([avatar.width, avatar.height], [row.size, row.size]);
            compare(letter.text, "r");
            compare(letter.font.capitalization, Font.AllUppercase);
            compare(letter.font.weight, Font.DemiBold);
            fuzzyCompare(letter.size, 0.45 * row.size, 0.001);
            isColour(letter.color, row.ink);
            compare(rounds(avatar).length, 1);
            const ground = rounds(avatar)[0];
            isColour(ground.color, Qt.alpha(row.ink, 0.18));
            compare([ground.width, ground.radius], [row.size, row.size / 2]);
        }

        function test_anAvatarsRingIsInTheAccent() {
            const avatar = createTemporaryObject(avatars, scene, { ring: true });
            const [ground, ring] = rounds(avatar);
            isColour(ring.border.color, Theme.accent);
            verify(ring.border.width > 0);
            verify(ring.width > ground.width && ring.x < 0);
            avatar.ring = false;
            compare(rounds(avatar).length, 1);
        }

        function test_aPillIsFilledOrTinted() {
            const pill = createTemporaryObject(pills, scene, { color: Theme.success });
            const symbol = everySeen(pill, child => child instanceof Symbol)[0];
            const ground = rounds(pill)[0];
            isColour(ground.color, Qt.alpha(Theme.success, 0.11));
            isColour(words(pill).color, Theme.success);
            isColour(symbol.color, Theme.success);
            pill.filled = true;
            isColour(ground.color, Theme.underWhite(Theme.success));
            isColour(words(pill).color, "#ffffff");
            isColour(symbol.color, "#ffffff");
        }

        function test_aBusyButtonsSpinnerTakesTheIconsPlace() {
            const button = createTemporaryObject(buttons, scene);
            const marks = () => everySeen(button, child => child instanceof Symbol || child instanceof Spinner);
            const place = item => item.mapToItem(button, item.width / 2, item.height / 2);
            const text = words(button).mapToItem(button, 0, 0);
            verify(marks().length === 1 && marks()[0] instanceof Symbol);
            const before = place(marks()[0]);
            button.busy = true;
            verify(marks().length === 1 && marks()[0] instanceof Spinner);
            compare(place(marks()[0]), before);
            compare(words(button).mapToItem(button, 0, 0), text);
        }

        function test_onlyARingTurns_data() {
            return [
                { tag: "a symbol keeps its place", icon: "eye", dashed: false, spinning: true },
                { tag: "a ring turns", icon: "", dashed: false, spinning: true, ring: true, turns: true },
                { tag: "a dashed mark turns", icon: "", dashed: true, spinning: true, ring: true, turns: true },
                { tag: "a dashed mark stands", icon: "", dashed: true, spinning: false, ring: true },
                { tag: "nothing", icon: "", dashed: false, spinning: false }
            ];
        }

        function test_onlyARingTurns(row) {
            const pill = createTemporaryObject(pillboxes, scene,
                                               { icon: row.icon, dashed: row.dashed, spinning: row.spinning });
            compare(everySeen(pill, child => child instanceof Symbol).length, row.icon === "" ? 0 : 1);
            const [ring] = everySeen(pill, child => child instanceof DashedRing);
            compare(ring !== undefined, row.ring ?? false);
            if (row.turns) {
                tryVerify(() => ring.rotation > 0);
            } else if (ring) {
                wait(60);
                compare(ring.rotation, 0);
            }
        }
    }
}
