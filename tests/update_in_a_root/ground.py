"""What the tests in the root stand on: bundles, images, the tools' orders and their calls."""

import json
import os
import plistlib
import shutil
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

import stand_in

STATE = Path(stand_in.STATE)
PROGRAM = "/build/vellix_updating_program"
APPLICATIONS = Path("/Applications")
STAGE = Path("/home/caches/SorelUpdate")
TEAM = "QX9102846T"
IDENTIFIER = "com.rennyvale.Sorel"
LIMIT = 30.0  # seconds for any single thing, on a busy machine
# Where a program may stand, and where none can be replaced by a script.
FOLDERS = ["/Applications", "/Applications/Two words", "/Applications/it's here",
           "/Applications/燈台", "/Applications/Läger & co; (old) *?", "/Applications/a#b=c!~%",
           "/Applications/-rf"]
UNBEARABLE = ['a "quoted" one', "a $HOME of one", "a `tick`", "a back\\slash", "a\nbreak",
              '"; rm -rf /Applications; "', "$(rm -rf ${HOME})"]
STEPS = 12  # no script calls as many tools
NO_PROCESS = 2 ** 22 + 1  # beyond what the system numbers


def wait_until(what, condition):
    """The first true value of condition(); `what` tells, in the end, what was missed."""
    end = time.monotonic() + LIMIT
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {LIMIT:.0f} s for {what()}")
        time.sleep(0.01)


def write(path, text):
    path = Path(path)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def make_bundle(path, build, team=TEAM, identifier=IDENTIFIER):
    """A bundle whose every file tells its build, which its list may lack."""
    path = Path(path)
    write(path / "Contents/MacOS/Vellix", f"the program of build {build}\n")
    write(path / "Contents/Resources/Vellix.icns", f"the icon of build {build}\n")
    entries = {"CFBundleIdentifier": identifier, "CFBundleName": "Vellix"}
    if build is not None:
        entries["CFBundleVersion"] = build
    (path / "Contents/Info.plist").write_bytes(plistlib.dumps(entries))
    sign(path, team, identifier)
    return path


def sign(path, team=TEAM, identifier=IDENTIFIER):
    write(path / "Contents/CodeSignature", json.dumps(
        {"team": team, "identifier": identifier, "digest": stand_in.digest(path)}))


def build_of(path):
    """Of a bundle that is whole; None of anything else."""
    if not stand_in.is_whole(path):
        return None
    return plistlib.loads((Path(path) / "Contents/Info.plist").read_bytes())["CFBundleVersion"]


def orders(wanted=None):
    """What the tools are to do from now on, by their calls: {"hdiutil attach": "fail"}.

    One may "fail" in the midst of its work, "hang" without any, or "work and hang". "down" tells at
    which call, and "before", "midway" or "after" it, the whole script ends."""
    (STATE / "orders").write_text(json.dumps(wanted or {}), encoding="utf-8")


def calls():
    """[tool, arguments…] of each call since the ground was laid."""
    return [[call["tool"], *call["arguments"]] for call in noted()]


def noted():
    lines = (STATE / "calls").read_text(encoding="utf-8").splitlines(keepends=True)
    return [json.loads(line) for line in lines if line.endswith("\n")]


def everything(folder):
    """All there is below a folder, by path: what a file holds, and None for a folder."""
    told = {}
    for each in sorted(Path(folder).rglob("*")):
        told[str(each.relative_to(folder))] = (
            None if each.is_dir() and not each.is_symlink() else each.read_bytes())
    return told


def script_text(*words):
    done = subprocess.run([PROGRAM, *map(str, words)], capture_output=True, check=True,
                          timeout=LIMIT)
    return done.stdout


class OnTheGround(unittest.TestCase):
    """Each test begins on an empty machine, and leaves no process behind."""

    def setUp(self):
        self.started = []
        for folder in (APPLICATIONS, Path("/home"), Path("/tmp"), STATE):
            for each in folder.iterdir():
                shutil.rmtree(each) if each.is_dir() and not each.is_symlink() else each.unlink()
        self.forget_calls()
        orders()

    def tearDown(self):
        # All that there is in this root but for the tests and what holds it: scripts and tools that
        # were left behind as well.
        assert Path("/proc/1/comm").read_text() == "bwrap\n"
        try:
            os.kill(-1, signal.SIGKILL)
        except ProcessLookupError:
            pass
        for process in self.started:
            process.wait(LIMIT)
            for pipe in (process.stdin, process.stdout):
                if pipe:
                    pipe.close()

    @staticmethod
    def forget_calls():
        (STATE / "calls").write_text("", encoding="utf-8")

    def start(self, command, **options):
        process = subprocess.Popen(list(map(str, command)), start_new_session=True, **options)
        self.started.append(process)
        return process

    def run_script(self, path):
        """Its status once it has ended; negative for a signal."""
        process = self.start(["/bin/sh", path], stdin=subprocess.DEVNULL,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return process.wait(LIMIT)


def main():
    sys.exit(not unittest.main(exit=False, verbosity=1, failfast=False).result.wasSuccessful())
