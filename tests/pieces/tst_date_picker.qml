// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 480
    height: 120

    // As 3:40 PM on the second of three days.
    readonly property var afternoon: ({
            day: "Wed, Nov 15", hour: "3", minute: "40", half: "PM",
            dayNumber: 20, hourNumber: 3, minuteNumber: 40, afternoon: true,
            firstDay: 19, lastDay: 21, earlier: true, later: true, otherHalf: true
        })
    property var asked: []

    DatePicker {
        id: picker

        label: "Due"
        shown: scene.afternoon
        onStepped: (part, by) => scene.asked.push(part + " " + by)
        onTyped: (part, digit) => scene.asked.push(part + " digit " + digit)
        onEntered: (part, number) => scene.asked.push(part + "=" + number)
        onEnded: scene.asked.push("ended")
    }

    TestCase {
        name: "DatePicker"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }
        function init() {
            picker.shown = scene.afternoon;
            scene.forceActiveFocus();
            scene.asked = [];
        }
        function cleanup() {
            compare(probe.takeWarnings(), []);
        }

        function items(root, all) {
            for (let i = 0; i < root.children.length; ++i) {
                const child = root.children[i];
                if (!child.visible)
                    continue;
                all.push(child);
                items(child, all);
            }
            return all;
        }
        function named(name) {
            return items(picker, []).find(item => probe.accessibleName(item) === name) ?? null;
        }
        function parts() {
            return items(picker, []).filter(item => probe.accessibleRole(item) === "SpinBox")
                                    .map(item => probe.accessibleName(item));
        }
        function focusOn(name) {
            named(name).forceActiveFocus(Qt.TabFocusReason);
            verify(named(name).activeFocus);
        }
        function type(keys) {
            for (const key of keys)
                keyClick(key);
        }

        function test_tellsItsParts() {
            compare(probe.accessibleName(picker), "Due");
            compare(parts(), ["Day: Wed, Nov 15", "Hour: 3", "Minute: 40", "Half of the day: PM"]);
            picker.shown = Object.assign({}, scene.afternoon, { hour: "15", hourNumber: 15, half: "" });
            compare(parts(), ["Day: Wed, Nov 15", "Hour: 15", "Minute: 40"]);
        }

        function test_isSteppedByItsButtons() {
            for (const help of ["A day earlier", "A day later", "A quarter of an hour earlier",
                                "A quarter of an hour later"]) {
                mouseClick(named(help));
                verify(probe.act(named(help), "Press"));
            }
            compare(scene.asked, ["day -1", "day -1", "day 1", "day 1", "quarter -1", "quarter -1",
                                  "quarter 1", "quarter 1"]);
        }

        function test_hasNoWayOutOfItsRange_data() {
            return [
                { tag: "first day", change: { dayNumber: 19 }, help: "A day earlier" },
                { tag: "last day", change: { dayNumber: 21 }, help: "A day later" },
                { tag: "earliest", change: { earlier: false }, help: "A quarter of an hour earlier" },
                { tag: "latest", change: { later: false }, help: "A quarter of an hour later" }
            ];
        }

        function test_hasNoWayOutOfItsRange(row) {
            verify(named(row.help).enabled);
            picker.shown = Object.assign({}, scene.afternoon, row.change);
            verify(!named(row.help).enabled);
        }

        function test_isSteppedByTheArrows() {
            for (const name of parts()) {
                focusOn(name);
                keyClick(Qt.Key_Up);
                keyClick(Qt.Key_Down);
            }
            compare(scene.asked.filter(each => each !== "ended"),
                    ["day 1", "day -1", "hour 1", "hour -1", "minute 1", "minute -1", "half 1", "half -1"]);
        }

        function test_leadsFromPartToPart() {
            focusOn("Day: Wed, Nov 15");
            for (const name of ["Hour: 3", "Minute: 40", "Half of the day: PM"]) {
                keyClick(Qt.Key_Right);
                verify(named(name).activeFocus, name);
            }
            for (const name of ["Minute: 40", "Hour: 3", "Day: Wed, Nov 15"]) {
                keyClick(Qt.Key_Left);
                verify(named(name).activeFocus, name);
            }
            for (const name of ["Hour: 3", "Minute: 40", "Half of the day: PM"]) {
                keyClick(Qt.Key_Tab);
                verify(named(name).activeFocus, name);
            }
        }

        function test_takesDigits_data() {
            return [
                { tag: "hour", at: "Hour: 3", keys: ["1", "2"], asked: ["hour digit 1", "hour digit 2"] },
                { tag: "minute", at: "Minute: 40", keys: ["0", "5"], asked: ["minute digit 0", "minute digit 5"] },
                { tag: "left by Tab", at: "Hour: 3", keys: ["1", Qt.Key_Tab], asked: ["hour digit 1", "ended"] },
                { tag: "left by an arrow", at: "Minute: 40", keys: ["1", Qt.Key_Left], asked: ["minute digit 1", "ended"] },
                { tag: "no letter", at: "Minute: 40", keys: ["x"], asked: [] },
                { tag: "none in the day", at: "Day: Wed, Nov 15", keys: ["1"], asked: [] },
                { tag: "a letter for the half", at: "Half of the day: PM", keys: ["a", "P"], asked: ["half=0", "half=1"] }
            ];
        }

        function test_takesDigits(row) {
            focusOn(row.at);
            type(row.keys);
            compare(scene.asked, row.asked);
        }

        function test_isReadAndSetByAScreenReader() {
            verify(probe.act(named("Hour: 3"), "Increase"));
            verify(probe.act(named("Minute: 40"), "Decrease"));
            verify(probe.setAccessibleValue(named("Minute: 40"), 5));
            verify(probe.setAccessibleValue(named("Day: Wed, Nov 15"), 21));
            compare(scene.asked, ["hour 1", "minute -1", "minute=5", "day=21"]);
            compare(named("Minute: 40").value, 40);
            compare(named("Day: Wed, Nov 15").minimumValue, 19);
            compare(named("Day: Wed, Nov 15").maximumValue, 21);
        }

        function test_getsTheKeyboardByAPress() {
            mouseClick(named("Minute: 40"));
            verify(named("Minute: 40").activeFocus);
            compare(scene.asked, []);
            mouseClick(named("Half of the day: PM"));
            compare(scene.asked, ["ended", "half 1"]);
        }
    }
}
