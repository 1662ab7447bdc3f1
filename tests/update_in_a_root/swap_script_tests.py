"""The script that puts a new program into the place of the running one, under the real shell."""

import subprocess
from pathlib import Path

from ground import (APPLICATIONS, FOLDERS, NO_PROCESS, STAGE, STEPS, OnTheGround, build_of,
                    calls, everything, main, make_bundle, orders, script_text, wait_until, write)


class SwapTest(OnTheGround):
    def lay(self, folder="/Applications", name="Vellix.app", fresh="Vellix.app", old=None):
        """A running copy of build 40, a verified one of build 41, and the script between them."""
        self.current = make_bundle(Path(folder) / name, "40")
        self.target = Path(folder) / fresh
        self.old = Path(f"{self.target}.old")
        self.fresh = make_bundle(STAGE / fresh, "41")
        if old == "leftover":
            make_bundle(self.old, "39")
        self.script = STAGE / "swap.sh"
        self.write_script(NO_PROCESS)

    def write_script(self, process):
        self.script.write_bytes(
            script_text("swap-script", process, self.current, self.target, self.fresh))

    def stands(self):
        """Where a working program is to be found: at its place, or beside it."""
        places = (self.target, self.old, self.current)
        return [str(place) for place in places if build_of(place)]


class Swap(SwapTest):
    def test_puts_the_new_one_into_its_place(self):
        for folder in FOLDERS:
            for name in ("Vellix.app", "Sorel.app"):
                for old in (None, "leftover") if folder == FOLDERS[0] else (None,):
                    with self.subTest(folder=folder, name=name, old=old):
                        self.setUp()
                        self.lay(folder, name, old=old)
                        self.assertEqual(self.run_script(self.script), 0)
                        self.assertEqual(build_of(self.target), "41")
                        self.assertEqual([each.name for each in Path(folder).iterdir()
                                          if each.suffix in (".app", ".old")], ["Vellix.app"])
                        target = str(self.target)
                        self.assertEqual(
                            calls()[-2:],
                            [["xattr", "-dr", "com.apple.quarantine", target], ["open", target]])
                        self.assertEqual(build_of(self.fresh), "41", "the stage stays")

    def test_goes_the_other_way_as_well(self):
        self.lay(name="Vellix.app", fresh="Sorel.app")
        self.assertEqual(self.run_script(self.script), 0)
        self.assertEqual([each.name for each in APPLICATIONS.iterdir()], ["Sorel.app"])
        self.assertEqual(build_of(self.target), "41")

    def test_calls_its_tools_in_order(self):
        self.lay(name="Sorel.app", old="leftover")
        make_bundle(self.target, "38")
        self.assertEqual(self.run_script(self.script), 0)
        target, old = str(self.target), str(self.old)
        self.assertEqual(calls(), [
            ["rm", "-rf", old], ["mv", target, old], ["ditto", str(self.fresh), target],
            ["rm", "-rf", old], ["rm", "-rf", str(self.current)],
            ["xattr", "-dr", "com.apple.quarantine", target], ["open", target]])

    def test_brings_the_old_one_back_when_the_new_one_cannot_be_copied(self):
        for folder in FOLDERS:
            for name in ("Vellix.app", "Sorel.app"):
                with self.subTest(folder=folder, name=name):
                    self.setUp()
                    self.lay(folder, name)
                    before = everything(folder)
                    orders({"ditto": "fail"})
                    self.assertEqual(self.run_script(self.script), 0)
                    self.assertEqual(everything(folder), before)
                    self.assertEqual(calls()[-1], ["open", str(self.current)])

    def test_takes_nothing_that_lies_beside_it(self):
        self.lay()
        beside = {"Vellix.app.older/file": "a", "Vellix/file": "b", "Other.app/file": "c"}
        for name, text in beside.items():
            write(APPLICATIONS / name, text)
        self.assertEqual(self.run_script(self.script), 0)
        for name, text in beside.items():
            self.assertEqual((APPLICATIONS / name).read_text(), text)

    def test_waits_for_the_program_to_end(self):
        self.lay()
        program = self.start(["/real/bin/sleep", "600"])
        self.write_script(program.pid)
        before = everything(APPLICATIONS)
        script = self.start(["/bin/sh", self.script], stdin=subprocess.DEVNULL)
        wait_until(lambda: "two rounds of waiting", lambda: len(calls()) >= 2)
        self.assertEqual(everything(APPLICATIONS), before)
        program.kill()
        program.wait()
        self.assertEqual(script.wait(60), 0)
        self.assertEqual(build_of(self.target), "41")
        waits = [call for call in calls() if call[0] == "sleep"]
        self.assertEqual({tuple(call) for call in waits}, {("sleep", "0.2")})
        self.assertEqual(calls()[:len(waits)], waits, "nothing was done while the program ran")


class SwapGoesDown(SwapTest):
    """A machine that goes down, before, in the midst of and after each thing that the script does.

    What the shell does between two tools by itself changes nothing on the disk, so these are all
    the points there are."""

    def go_down_everywhere(self, lay, wanted=()):
        reached = set()
        for when in ("before", "midway", "after"):
            for step in range(1, STEPS):
                self.setUp()
                lay()
                self.assertTrue(self.stands())
                orders({"down": {"step": step, "when": when}, **dict(wanted)})
                status = self.run_script(self.script)
                with self.subTest(when=when, step=step, calls=calls()):
                    self.assertEqual(status, -9 if len(calls()) == step else 0)
                    self.assertTrue(self.stands(), everything("/Applications"))
                if status == 0:
                    break
                reached.add((when, calls()[-1][0]))
        return reached

    def test_and_leaves_a_program(self):
        reached = self.go_down_everywhere(self.lay)
        for when in ("before", "midway", "after"):
            self.assertLessEqual({(when, tool) for tool in ("rm", "mv", "ditto", "xattr", "open")},
                                 reached)

    def test_and_leaves_a_program_that_had_another_name(self):
        self.go_down_everywhere(lambda: self.lay(name="Sorel.app", old="leftover"))

    def test_and_leaves_a_program_with_another_beside_it(self):
        def lay():
            self.lay(name="Sorel.app")
            make_bundle(self.target, "38")
        self.go_down_everywhere(lay)

    def test_and_leaves_a_program_when_the_new_one_cannot_be_copied(self):
        self.go_down_everywhere(lambda: self.lay(old="leftover"), {"ditto": "fail"})
        self.go_down_everywhere(lambda: self.lay(name="Sorel.app"), {"ditto": "fail"})

    def test_while_it_waits(self):
        self.lay()
        before = everything(APPLICATIONS)
        program = self.start(["/real/bin/sleep", "600"])
        self.write_script(program.pid)
        orders({"down": {"step": 2, "when": "after"}})
        self.assertEqual(self.run_script(self.script), -9)
        self.assertEqual(everything(APPLICATIONS), before)


if __name__ == "__main__":
    main()
