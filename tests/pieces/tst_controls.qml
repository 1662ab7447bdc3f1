// The probe is the test program's, of which qmllint knows nothing.
// qmllint disable unqualified
import QtQuick
import QtTest
import Vellix.Pieces

Item {
    id: scene

    width: 640
    height: 480

    Column {
        spacing: 8

        Pill { id: pill; title: "Share"; icon: "link" }
        BigButton { id: big; title: "Sync"; icon: "arrow.triangle.2.circlepath"; width: 200 }
        LinkPill { id: link; title: "Email"; icon: "envelope"; url: "https://mail.example/7" }
        LinkPill { id: opener; title: "Folder"; icon: "folder" }
        IconButton { id: bare; symbol: "gearshape"; help: "Settings" }
        TextButton { id: stop; text: "Stop" }
        CheckBox { id: check; text: "Only mine" }
        Switch { id: toggle; label: "Urgent" }
        Segmented {
            id: segments

            label: "View"
            current: "a"
            options: [{ key: "a", label: "Side by side" }, { key: "b", label: "Overlay", count: "3" }]
        }
        DropButton {
            id: drop

            label: "You"

            Label { text: "You" }
        }
        ListRow {
            id: row

            label: "Renny Vale"
            width: 100
            height: 24

            Label { text: "Renny Vale" }
        }
        Slider { id: slider; label: "Zoom"; from: 1; to: 4; level: 2; width: 200 }
        ToastView { id: toast; text: "Marked a real issue."; undoLabel: "Undo" }
        Avatar {
            id: avatar

            who: ({ letter: "r", color: "#7442e8", photo: "", help: "Renny Vale" })
            pictures: null
            ring: true
        }
        Card { id: card; title: "Open now"; Label { text: "All caught up." } }
        Digits { id: digits; text: "p12 · 1 of 88" }
        Spinner { id: spinner }
        SorelMark { id: mark; working: true }
        DottedLine { id: dots; width: 100; color: Theme.muted }
        Hairline { id: hairline; width: 100 }
    }

    DashedRing { id: ring; x: 420; spinning: true }
    HalfRound { id: left; x: 440; width: 20; height: 40; color: "#ff0000" }
    HalfRound { id: right; x: 470; width: 20; height: 40; color: "#ff0000"; mirrored: true }
    Item {
        id: glider

        Behavior on x {
            Glide {}
        }
    }

    Component {
        id: freshToast

        ToastView {}
    }

    SignalSpy { id: spy }

    TestCase {
        name: "Controls"
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
            for (const control of [pill, big, link, bare, stop, check, toggle, drop, row, slider])
                control.enabled = true;
            Theme.reducedMotion = false;
            big.busy = false;
            check.checked = toggle.checked = false;
            toast.undoLabel = "Undo";
            slider.level = 2;
            probe.takeOpened();
            compare(probe.takeWarnings(), []);
        }

        function watch(item, signal) {
            spy.target = null;
            spy.signalName = signal;
            spy.target = item;
            spy.clear();
        }

        function test_everyButtonIsPressed_data() {
            return [
                { tag: "Pill", item: pill, signal: "clicked", name: "Share", role: "Button" },
                { tag: "BigButton", item: big, signal: "action", name: "Sync", role: "Button" },
                { tag: "LinkPill", item: link, signal: "clicked", name: "Email", role: "Link" },
                { tag: "IconButton", item: bare, signal: "clicked", name: "Settings", role: "Button" },
                { tag: "TextButton", item: stop, signal: "clicked", name: "Stop", role: "Button" },
                { tag: "DropButton", item: drop, signal: "clicked", name: "You", role: "Button" },
                { tag: "ListRow", item: row, signal: "clicked", name: "Renny Vale", role: "Button" },
                { tag: "CheckBox", item: check, signal: "toggled", name: "Only mine", role: "CheckBox" },
                { tag: "Switch", item: toggle, signal: "toggled", name: "Urgent", role: "CheckBox" }
            ];
        }

        function test_everyButtonIsPressed(row) {
            compare(probe.accessibleName(row.item), row.name);
            compare(probe.accessibleRole(row.item), row.role);
            watch(row.item, row.signal);
            mouseClick(row.item);
            compare(spy.count, 1);
            row.item.forceActiveFocus(Qt.TabFocusReason);
            verify(row.item.visualFocus);
            keyClick(Qt.Key_Space);
            compare(spy.count, 2);
            keyClick(Qt.Key_Return);
            compare(spy.count, 3);
            verify(probe.act(row.item, "Press"));
            compare(spy.count, 4);

            row.item.enabled = false;
            mouseClick(row.item);
            probe.act(row.item, "Press");
            compare(spy.count, 4);
            verify(row.item.opacity < 1);
        }

        function test_everyControlShowsItsState_data() {
            return [
                { tag: "Pill", item: pill },
                { tag: "BigButton", item: big },
                { tag: "LinkPill", item: link },
                { tag: "IconButton", item: bare },
                { tag: "TextButton", item: stop },
                { tag: "DropButton", item: drop },
                { tag: "ListRow", item: row },
                { tag: "CheckBox", item: check },
                { tag: "CheckBox, checked", item: check, checked: true },
                { tag: "Switch", item: toggle },
                { tag: "Switch, checked", item: toggle, checked: true },
                { tag: "Slider", item: slider }
            ];
        }

        // What is seen of the control, with room for a ring around it.
        function sight(item) {
            const at = item.mapToItem(scene, 0, 0);
            const whole = grabImage(scene);
            const seen = [];
            for (let y = Math.max(0, Math.round(at.y) - 4); y < at.y + item.height + 4; y += 1) {
                for (let x = Math.max(0, Math.round(at.x) - 4); x < at.x + item.width + 4; x += 2)
                    seen.push(whole.pixel(x, y).toString());
            }
            return seen.join();
        }

        function test_everyControlShowsItsState(row) {
            const item = row.item;
            const middle = item.height / 2;
            Theme.reducedMotion = true;
            if (row.checked)
                item.checked = true;
            mouseMove(scene, 600, 470);
            scene.forceActiveFocus();
            // What fades from the test before has gone.
            let rest = "";
            tryVerify(() => {
                const former = rest;
                rest = sight(item);
                return rest === former && !item.hovered;
            });
            mouseMove(item, item.width / 2, middle);
            verify(item.hovered);
            const hovered = sight(item);
            verify(hovered !== rest, "hovered");
            mousePress(item, item.width / 2, middle);
            verify(item.pressed);
            verify(![rest, hovered].includes(sight(item)), "pressed");
            mouseMove(scene, 600, 470);
            mouseRelease(scene, 600, 470);
            mouseMove(scene, 602, 470);
            tryVerify(() => sight(item) === rest, 5000, "left");
            item.forceActiveFocus(Qt.TabFocusReason);
            verify(sight(item) !== rest, "focus");
            scene.forceActiveFocus();
            item.enabled = false;
            verify(sight(item) !== rest, "disabled");
            item.enabled = true;
            tryVerify(() => sight(item) === rest, 5000, "enabled again");
        }

        function test_aPressLetGoElsewhereIsNone() {
            watch(pill, "clicked");
            mousePress(pill);
            verify(pill.pressed);
            mouseMove(pill, -30, -30);
            verify(!pill.pressed);
            mouseRelease(pill, -30, -30);
            compare(spy.count, 0);
        }

        function test_clicksTellTheirModifiers() {
            watch(pill, "clicked");
            mouseClick(pill, 5, 5, Qt.LeftButton, Qt.ControlModifier);
            compare(spy.signalArguments[0][0], Qt.ControlModifier);
        }

        function test_focusByPointerHasNoRing() {
            pill.forceActiveFocus(Qt.MouseFocusReason);
            verify(!pill.visualFocus);
        }

        function test_theRingComesBackWithTheButton() {
            pill.forceActiveFocus(Qt.TabFocusReason);
            verify(pill.visualFocus);
            pill.enabled = false;
            verify(!pill.visualFocus);
            pill.enabled = true;
            verify(pill.activeFocus);
            verify(pill.visualFocus);
            pill.enabled = false;
            big.forceActiveFocus(Qt.MouseFocusReason);
            pill.enabled = true;
            verify(!pill.visualFocus, "somebody else has the keyboard");
            pill.forceActiveFocus(Qt.MouseFocusReason);
            pill.enabled = false;
            pill.enabled = true;
            verify(pill.activeFocus);
            verify(!pill.visualFocus, "it showed none before");
        }

        function test_busyButtonWaits() {
            big.busy = true;
            watch(big, "action");
            mouseClick(big);
            verify(probe.act(big, "Press"));
            compare(spy.count, 0);
        }

        function test_linkOpensWebAndMailOnly() {
            for (const opened of ["https://mail.example/7", "http://mail.example/7", "MAILTO:ana@press.example"]) {
                opener.url = opened;
                verify(opener.enabled, opened);
                mouseClick(opener);
                compare(probe.takeOpened().map(url => url.toLowerCase()), [opened.toLowerCase()]);
            }
            for (const refused of ["", "file:///etc/passwd", "javascript:alert(1)"]) {
                opener.url = refused;
                verify(!opener.enabled, refused);
                mouseClick(opener);
                probe.act(opener, "Press");
                compare(probe.takeOpened(), []);
            }
        }

        function test_boxesAskAndDoNotDecide() {
            watch(check, "toggled");
            mouseClick(check);
            compare(spy.signalArguments[0][0], true);
            verify(!check.checked);
            check.checked = true;
            verify(probe.accessibleChecked(check));
            mouseClick(check);
            compare(spy.signalArguments[1][0], false);
            check.checked = false;
        }

        function cellsOf(item) {
            const cells = [];
            for (let i = 0; i < item.children.length; ++i) {
                if (item.children[i] instanceof PressArea)
                    cells.push(item.children[i]);
                cells.push(...cellsOf(item.children[i]));
            }
            return cells;
        }

        function test_segmentsKeepTheirPlaces() {
            const cells = cellsOf(segments);
            compare(cells.length, 2);
            const places = () => cells.map(cell => [cell.x, cell.width]);
            const before = places();
            segments.current = "b";
            compare(places(), before);
            segments.current = "a";
            compare(places(), before);
        }

        function test_segments() {
            const cells = cellsOf(segments);
            compare(cells.map(cell => probe.accessibleName(cell)), ["Side by side", "Overlay"]);
            verify(probe.accessibleChecked(cells[0]));
            watch(segments, "picked");
            mouseClick(cells[1]);
            compare(spy.signalArguments[0][0], "b");
            compare(segments.current, "a");
            segments.current = "b";
            verify(probe.accessibleChecked(cells[1]));
            cells[1].forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Left);
            compare(spy.signalArguments[1][0], "a");
            verify(probe.act(cells[0], "Press"));
            compare(spy.count, 3);
            verify(probe.act(cells[1], "Toggle"));
            compare(spy.count, 4);
        }

        function test_sliderAsks() {
            watch(slider, "moved");
            mouseClick(slider, slider.width - 1, 10);
            compare(spy.signalArguments[0][0], 4);
            compare(slider.level, 2);
            slider.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Right);
            fuzzyCompare(spy.signalArguments[1][0], 2.15, 0.001);
            verify(probe.act(slider, "Increase"));
            fuzzyCompare(spy.signalArguments[2][0], 2.15, 0.001);
            verify(probe.setAccessibleValue(slider, 3));
            compare(spy.signalArguments[3][0], 3);
            slider.level = 3.5;
            compare(slider.value, 3.5);
        }

        function test_toastOffersUndoOnlyWithALabel() {
            const button = childOf(toast, child => child instanceof PressArea);
            compare(probe.accessibleName(toast), "Marked a real issue.");
            compare(probe.accessibleName(button), "Undo");
            const wide = toast.implicitWidth;
            watch(toast, "undo");
            mouseClick(button);
            verify(probe.act(button, "Press"));
            compare(spy.count, 2);
            toast.undoLabel = "";
            verify(!button.visible);
            verify(toast.implicitWidth < wide);
            probe.act(button, "Press");
            compare(spy.count, 2);
        }

        // Each text is laid out as it would be had none been there before.
        function test_toastShowsEveryTextWhole() {
            const wordsOf = view => childOf(view, child => child instanceof Label);
            const lengthy = "Uploaded v4. The Mac mini is checking it against v3. ".repeat(3);
            for (const [text, undoLabel] of [
                ["Fine.", ""], ["Marked a real issue.", "Undo"], ["a", "Undo"], [lengthy, ""],
                ["Up to date.", ""], ["You're signed out. Sign in again.", ""], [lengthy, "Undo"],
                ["Moved to New.", "Undo"], ["That PDF is too big. Use one under 60 MB.", ""]
            ]) {
                toast.text = text;
                toast.undoLabel = undoLabel;
                const fresh = freshToast.createObject(scene, { text: text, undoLabel: undoLabel });
                const words = wordsOf(toast), wanted = wordsOf(fresh);
                compare(words.contentWidth, wanted.contentWidth, text);
                compare(words.lineCount, wanted.lineCount, text);
                compare(toast.implicitWidth, fresh.implicitWidth, text);
                compare(toast.implicitHeight, fresh.implicitHeight, text);
                verify(words.contentWidth + 1 > Math.min(words.implicitWidth, 400), text);
                fresh.destroy();
            }
        }

        function test_digitsHoldTheirPlace() {
            digits.text = "111";
            const narrow = digits.implicitWidth;
            digits.text = "888";
            compare(digits.implicitWidth, narrow);
            compare(probe.accessibleName(digits), "888");
            digits.text = "";
            compare(digits.implicitWidth, 0);
        }

        function test_digitsKeepTheirCells() {
            const cells = () => Array.from(digits.row.children).filter(cell => cell.digit !== undefined);
            digits.text = "p12 · 1 of 88";
            const before = cells();
            compare(before.map(cell => cell.text).join(""), digits.text);
            digits.text = "p13 · 2 of 88";
            const after = cells();
            compare(after.map(cell => cell.text).join(""), digits.text);
            compare(after.length, before.length);
            verify(after.every((cell, i) => cell === before[i]));
            digits.text = "9";
            tryCompare(digits.row, "implicitWidth", digits.implicitWidth);
            compare(cells()[0].text, "9");
            digits.text = "";
            compare(digits.row, null, "of no text nothing is made");
        }

        // The arc of a spinner, which lies over its ring.
        function arcOf(item) {
            const made = item.children[item.children.length - 1].item.children;
            return made[made.length - 1];
        }

        function test_whatMovesStandsStillWhenAsked() {
            const arc = arcOf(spinner);
            const turned = arc.rotation;
            tryVerify(() => mark.open > 0 && arc.rotation !== turned && ring.rotation > 0);
            Theme.reducedMotion = true;
            tryCompare(mark, "open", 0);
            const still = [arc.rotation, ring.rotation];
            glider.x = 50;
            compare(glider.x, 50);
            mousePress(pill);
            fuzzyCompare(pill.scale, 0.97, 0.0001);
            mouseRelease(pill);
            compare(pill.scale, 1);
            wait(60);
            compare([arc.rotation, ring.rotation, mark.open], [...still, 0]);
            Theme.reducedMotion = false;
            tryVerify(() => arc.rotation !== still[0]);
        }

        function test_aSpinnerThatIsNotShownIsMadeOfNothing() {
            spinner.visible = false;
            compare(spinner.children[0].item, null);
            compare(spinner.implicitWidth, 14);
            spinner.visible = true;
            verify(arcOf(spinner));
        }

        function test_theSpinnerTurnsWhileItIsOn() {
            const arc = arcOf(spinner);
            spinner.on = false;
            const still = arc.rotation;
            wait(40);
            compare(arc.rotation, still);
            spinner.on = true;
            tryVerify(() => arc.rotation !== still);
        }

        function test_theMarkIsCalmUnlessItWorks() {
            mark.working = false;
            tryCompare(mark, "open", 0);
            const halves = mark.children;
            verify(!halves[0].mirrored);
            verify(halves[1].mirrored);
            compare(halves[1].x - halves[0].x - halves[0].width, mark.line);
            mark.line = 6;
            compare(halves[1].x - halves[0].x - halves[0].width, 6);
            mark.working = true;
            tryVerify(() => mark.open > 0);
        }

        function test_pressingScalesALittle() {
            mousePress(pill);
            tryVerify(() => pill.scale < 1);
            verify(pill.scale > 0.9);
            mouseRelease(pill);
            tryCompare(pill, "scale", 1);
            big.busy = true;
            mousePress(big);
            wait(30);
            compare(big.scale, 1);
            mouseRelease(big);
        }

        function test_helpOfEveryControlIsItsDescription() {
            pill.help = "Whoever has the link sees it";
            compare(probe.accessibleDescription(pill), "Whoever has the link sees it");
            compare(probe.accessibleDescription(bare), "");
            pill.help = "";
        }

        function test_aHalfRoundIsHalfADisc() {
            for (const half of [left, right]) {
                const image = grabImage(half);
                const inner = half.mirrored ? 1 : half.width - 2;
                const outer = half.width - 1 - inner;
                verify(Qt.colorEqual(image.pixel(inner, 20), half.color), "flat side");
                verify(!Qt.colorEqual(image.pixel(outer, 2), half.color), "round side, top");
                verify(!Qt.colorEqual(image.pixel(outer, 37), half.color), "round side, foot");
            }
        }

        function test_aDottedLineHasGaps() {
            const image = grabImage(dots);
            const seen = new Set();
            for (let x = 0; x < dots.width; ++x)
                seen.add(Qt.colorEqual(image.pixel(x, 0), image.pixel(3, 0)));
            compare(seen.size, 2);
        }

        function test_helpAppearsAfterARestAndGoes() {
            function bubble() {
                let top = scene;
                while (top.parent)
                    top = top.parent;
                return childOf(top, child => child instanceof HelpBubble);
            }
            mouseMove(bare, 4, 4);
            tryVerify(() => bubble() !== undefined);
            compare(bubble().text, "Settings");
            mouseMove(scene, 600, 470);
            tryVerify(() => bubble() === undefined);
        }

        function test_namesOfTheRest() {
            compare(probe.accessibleName(avatar), "Renny Vale");
            compare(probe.accessibleName(card), "Open now");
            compare(hairline.implicitHeight, 1 / Screen.devicePixelRatio);
            verify(spinner.width === 14);
        }
    }
}
