"""The script that gives a copy under the earlier name its present one, under the real shell."""

import subprocess
from pathlib import Path

from ground import (APPLICATIONS, FOLDERS, NO_PROCESS, STEPS, OnTheGround, build_of, calls,
                    everything, main, make_bundle, orders, script_text, sign, wait_until, write)


class RenameTest(OnTheGround):
    def lay(self, build, other=None, folder="/Applications"):
        """A copy of `build` under the earlier name, beside one of `other` under the present one."""
        self.old = make_bundle(Path(folder) / "Sorel.app", str(build))
        self.new = Path(folder) / "Vellix.app"
        if other is not None:
            make_bundle(self.new, str(other))
        self.script = Path("/tmp/vellix-rename.sh")
        self.build = build
        self.write_script(NO_PROCESS)

    def write_script(self, process):
        self.script.write_bytes(
            script_text("rename-script", process, self.build, self.old, self.new))

    def leaves(self, build):
        self.assertEqual(self.run_script(self.script), 0)
        self.assertEqual(build_of(self.new), str(build))
        self.assertFalse(self.old.exists())
        self.assertEqual(calls()[-1], ["open", str(self.new)])


class Rename(RenameTest):
    def test_keeps_the_higher_build(self):
        for ours, theirs, kept in ((40, 41, 41), (41, 40, 41), (41, 41, 41), (9, 10, 10),
                                   (10, 9, 10), (1, None, 1), (40, 0, 40), (40, -1, 40)):
            for folder in FOLDERS:
                with self.subTest(ours=ours, theirs=theirs, folder=folder):
                    self.setUp()
                    self.lay(ours, theirs, folder)
                    self.leaves(kept)

    def test_throws_its_own_copy_away_when_builds_are_equal(self):
        self.lay(41, 41)
        write(self.new / "Contents/Resources/mark", "theirs")
        sign(self.new)
        self.leaves(41)
        self.assertEqual((self.new / "Contents/Resources/mark").read_text(), "theirs")
        self.assertIn(["rm", "-rf", str(self.old)], calls())

    def test_counts_what_cannot_be_read_as_nothing(self):
        for name, spoil in {
                "no list": lambda path: path.unlink(),
                "no file": lambda path: (path.unlink(), path.mkdir()),
                "torn": lambda path: path.write_bytes(path.read_bytes()[:90]),
                "empty": lambda path: path.write_bytes(b""),
                "no build": lambda path: make_bundle(self.new, None)}.items():
            with self.subTest(name):
                self.setUp()
                self.lay(40, 41)
                spoil(self.new / "Contents/Info.plist")
                self.leaves(40)

    def test_calls_its_tools_in_order(self):
        for ours, theirs, expected in (
                (41, 40, [["rm", "-rf", "new"], ["mv", "old", "new"]]),
                (40, 41, [["rm", "-rf", "old"]]),
                (40, None, [["mv", "old", "new"]])):
            with self.subTest(ours=ours, theirs=theirs):
                self.setUp()
                self.lay(ours, theirs)
                self.assertEqual(self.run_script(self.script), 0)
                names = {"old": str(self.old), "new": str(self.new)}
                asked = [["PlistBuddy", "-c", "Print CFBundleVersion",
                          f"{self.new}/Contents/Info.plist"]] if theirs is not None else []
                done = [[names.get(word, word) for word in call] for call in expected]
                self.assertEqual(calls(), asked + done + [["open", str(self.new)]])

    def test_stays_when_the_other_cannot_be_removed(self):
        self.lay(41, 40)
        orders({"rm": "fail"})
        self.assertEqual(self.run_script(self.script), 0)
        self.assertEqual(build_of(self.old), "41")

    def test_waits_for_the_program_to_end(self):
        self.lay(41, 40)
        program = self.start(["/real/bin/sleep", "600"])
        self.write_script(program.pid)
        before = everything(APPLICATIONS)
        script = self.start(["/bin/sh", self.script], stdin=subprocess.DEVNULL)
        wait_until(lambda: "two rounds of waiting", lambda: len(calls()) >= 2)
        self.assertEqual(everything(APPLICATIONS), before)
        program.kill()
        program.wait()
        self.assertEqual(script.wait(60), 0)
        self.assertEqual(build_of(self.new), "41")


class RenameGoesDown(RenameTest):
    """A machine that goes down before, in the midst of and after each thing that is done."""

    def test_and_leaves_a_program(self):
        for ours, theirs in ((41, 40), (40, 41), (41, 41), (40, None)):
            for when in ("before", "midway", "after"):
                for step in range(1, STEPS):
                    self.setUp()
                    self.lay(ours, theirs)
                    orders({"down": {"step": step, "when": when}})
                    status = self.run_script(self.script)
                    with self.subTest(ours=ours, theirs=theirs, when=when, step=step):
                        self.assertEqual(status, -9 if len(calls()) == step else 0)
                        self.assertTrue(build_of(self.old) or build_of(self.new),
                                        everything(APPLICATIONS))
                    if status == 0:
                        break
                self.assertGreaterEqual(step, 3, "there is more that it does")


if __name__ == "__main__":
    main()
