// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 200
    height: 100

    Rectangle {
        id: ground

        width: 40
        height: 40
        color: Theme.window
    }

    Symbol {
        id: symbol

        x: 60
        size: 32
        name: "circle.fill"
        color: Theme.fore["red"]
    }

    TestCase {
        name: "Theme"
        when: windowShown

        function initTestCase() {
            probe.watchWarnings();
        }

        function init() {
            Theme.appearance = "light";
        }

        function cleanup() {
            Theme.reducedMotion = false;
            compare(probe.takeWarnings(), []);
        }

        function test_switches() {
            compare(ground.color, "#f3f6f7");
            compare(symbol.color, "#de5246");
            Theme.appearance = "dark";
            verify(Theme.dark);
            compare(ground.color, "#12100f");
            compare(symbol.color, "#ff7a6e");
            Theme.appearance = "light";
            compare(symbol.color, "#de5246");
        }

        function test_unknownAppearanceIsTheSystems() {
            Theme.appearance = "system";
            const system = Theme.dark;
            Theme.appearance = system ? "light" : "dark";
            Theme.appearance = "sepia";
            compare(Theme.dark, system);
            compare(Theme.appearance, "sepia");
        }

        function test_tones_data() {
            return [
                { tag: "purple", light: "#7442e8", dark: "#a684ff", lightAlpha: 0.11, darkAlpha: 0.18 },
                { tag: "amber", light: "#d48a12", dark: "#f2b544", lightAlpha: 0.16, darkAlpha: 0.17 },
                { tag: "green", light: "#24a35a", dark: "#4cd486", lightAlpha: 0.13, darkAlpha: 0.16 },
                { tag: "red", light: "#de5246", dark: "#ff7a6e", lightAlpha: 0.12, darkAlpha: 0.17 },
                { tag: "orange", light: "#e07a2c", dark: "#ffa05c", lightAlpha: 0.12, darkAlpha: 0.17 },
                { tag: "blue", light: "#1a84f0", dark: "#5ab0ff", lightAlpha: 0.12, darkAlpha: 0.17 },
                { tag: "gray", light: "#76716d", dark: "#a8a29c", lightAlpha: 0.13, darkAlpha: 0.16 }
            ];
        }

        function test_tones(row) {
            compare(Theme.fore[row.tag], row.light);
            fuzzyCompare(Theme.tint[row.tag].a, row.lightAlpha, 0.003);
            fuzzyCompare(Theme.tint[row.tag].r, Theme.fore[row.tag].r, 0.003);
            Theme.appearance = "dark";
            compare(Theme.fore[row.tag], row.dark);
            fuzzyCompare(Theme.tint[row.tag].a, row.darkAlpha, 0.003);
        }

        function test_namedColours_data() {
            return [
                { tag: "accent", light: "#e4572e", dark: "#f06a3f" },
                { tag: "success", light: "#2e8b57", dark: "#45b97a" },
                { tag: "danger", light: "#c8341c", dark: "#ff6a4f" },
                { tag: "warning", light: "#c77a00", dark: "#e9a23b" },
                { tag: "text", light: "#1d1917", dark: "#ffffff" },
                { tag: "ink", light: "#0f0b0a", dark: "#f3f1ec" },
                { tag: "muted", light: "#453d39", dark: "#cfc6bd" },
                { tag: "window", light: "#f3f6f7", dark: "#12100f" },
                { tag: "column", light: "#ebeeef", dark: "#171412" },
                { tag: "card", light: "#f4f5f2", dark: "#26211e" },
                { tag: "well", light: "#ecede1", dark: "#2a2621" },
                { tag: "line", light: "#e0e1e1", dark: "#332d29" }
            ];
        }

        function test_namedColours(row) {
            compare(Theme[row.tag], row.light);
            Theme.appearance = "dark";
            compare(Theme[row.tag], row.dark);
        }

        function test_reducedMotion() {
            compare(Theme.hover, 120);
            compare(Theme.standard, 320);
            Theme.reducedMotion = true;
            compare(Theme.hover, 0);
            compare(Theme.standard, 0);
        }

        function test_symbolPaintsItsColour() {
            waitForRendering(scene);
            let image = grabImage(scene);
            compare(image.pixel(76, 16), "#de5246");
            Theme.appearance = "dark";
            tryVerify(() => Qt.colorEqual(grabImage(scene).pixel(76, 16), "#ff7a6e"));
            symbol.name = "xmark";
            tryVerify(() => !Qt.colorEqual(grabImage(scene).pixel(76, 4), "#ff7a6e"));
            symbol.name = "circle.fill";
        }

        function test_everySymbolIsDrawn() {
            const names = probe.tableNames();
            verify(names.length > 60);
            compare(probe.compiledNames().sort(), names.slice().sort());
            for (const name of names) {
                verify(probe.draws(":/symbols/" + name + ".svg"), name);
                verify(probe.draws(":/symbols/small/" + name + ".svg"), name + ", small");
            }
        }

        function test_filledSymbolsAreFuller() {
            const names = probe.tableNames();
            const filled = names.filter(name => name.endsWith(".fill"));
            verify(filled.length > 8);
            for (const name of filled) {
                const line = name.slice(0, -5);
                if (!names.includes(line))
                    continue;
                verify(probe.marked(":/symbols/" + name + ".svg")
                       > probe.marked(":/symbols/" + line + ".svg") * 1.3, name);
            }
        }

        function test_circlesAreRound() {
            const names = probe.tableNames().filter(name => name.split(".").includes("circle"));
            verify(names.length > 8);
            for (const name of names)
                for (const folder of [":/symbols/", ":/symbols/small/"])
                    verify(probe.isRound(folder + name + ".svg"), folder + name);
            verify(!probe.isRound(":/symbols/checkmark.svg"));
        }

        function test_whatIsCircledIsInTheCircle() {
            for (const folder of [":/symbols/", ":/symbols/small/"])
                for (const name of ["equal.circle", "link.circle.fill"])
                    verify(probe.marked(folder + name + ".svg")
                           > probe.marked(folder + "circle.svg") * 1.15, folder + name);
        }

        function test_unknownSymbolIsToldAndNotDrawn() {
            symbol.name = "no.such.symbol";
            let told = "";
            tryVerify(() => (told += probe.takeWarnings().join("\n")).includes("no.such.symbol"));
            symbol.name = "circle.fill";
        }
    }
}
