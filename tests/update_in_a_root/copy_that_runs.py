"""A running copy of the program, its service, and what is left on the disk."""

import re
import subprocess
import threading
from pathlib import Path

from feed import Feed
from ground import (IDENTIFIER, PROGRAM, STAGE, OnTheGround, calls, everything, make_bundle,
                    wait_until, write)

DEFAULTS = Path("/home/config/vellix/defaults.ini")
IMAGE, MOUNT = str(STAGE / "Vellix.dmg"), str(STAGE / "mnt")
ATTACH = ["hdiutil", "attach", IMAGE, "-nobrowse", "-readonly", "-noautoopen", "-mountpoint", MOUNT]
DETACH = ["hdiutil", "detach", MOUNT, "-force"]
PATIENT = 60_000  # ms that a tool may take
HASTY = 4_000     # where one is to hang; the others must still do

NO_PAGE = "The download page didn't answer. Try again in a minute."
NOT_OURS = "That download isn't signed by Tessarine, so it wasn't installed."
NOT_NEW = "The download isn't the new build yet. Try again in a few minutes."
NOT_HERE = ("Vellix can't replace itself where it is. Drag the new Vellix from the window that "
            "opened into Applications.")
NOT_DONE = "The update didn't finish. Try again, or download it from the Vellix page."


def tool_failed(name):
    return f"The update check failed ({name}). Try again, or download it from the Vellix page."


def verification(app="Vellix.app"):
    """The calls for an image in which all is well, in order."""
    inside = f"{MOUNT}/{app}"
    return [ATTACH, ["codesign", "--verify", "--deep", "--strict", inside],
            ["codesign", "-dv", inside], ["ditto", inside, str(STAGE / app)], DETACH]


class Copy:
    """The process; `lines` is what it has told so far."""

    def __init__(self, process):
        self.process = process
        self.lines = []
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.decode().rstrip("\n"))

    def tell(self, command):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()

    def hears(self, line):
        wait_until(lambda: f"{line!r} after {self.lines}", lambda: line in self.lines)

    def comes_to_fail(self, times=1):
        """What is said of it at last."""
        def failures():
            return [line for line in list(self.lines) if line.startswith("failed ")]
        wait_until(lambda: f"a failure after {self.lines}", lambda: len(failures()) >= times)
        return failures()[-1].removeprefix("failed ")

    def kill(self):
        self.process.kill()
        self.process.wait(60)


class WithACopy(OnTheGround):
    def setUp(self):
        super().setUp()
        self.feed = Feed()
        self.addCleanup(self.feed.close)
        write(DEFAULTS, f"[General]\nServerURL={self.feed.base}\n")
        self.bundle = None

    def run_copy(self, folder="/Applications", name="Vellix.app", identifier=IDENTIFIER,
                 build="40", tool=PATIENT, make=True):
        self.bundle = Path(folder) / name
        self.opened = self.openings()
        if make:
            make_bundle(self.bundle, build)
        return Copy(self.start([PROGRAM, "copy", identifier, self.bundle, build, tool],
                               stdin=subprocess.PIPE, stdout=subprocess.PIPE))

    def press_update(self, copy):
        """As a person does who sees the bar."""
        copy.tell("check")
        copy.hears("checked")
        copy.tell("install")

    def openings(self):
        return [call for call in calls() if call[0] == "open"]

    def reopens(self, copy, target):
        """The program has ended, and the script has run to its end."""
        copy.hears("terminates")
        self.assertEqual(copy.process.wait(60), 0)
        wait_until(lambda: f"{target} to open after {calls()}",
                   lambda: self.openings() == self.opened + [["open", str(target)]])

    def tried(self):
        found = re.search(r"^UpdateTried=(.*)$", DEFAULTS.read_text(), re.MULTILINE)
        return found and found[1]

    def is_untouched(self, folder):
        """Holds what is in a folder against what was there when this was called."""
        before = everything(folder)
        return lambda: self.assertEqual(everything(folder), before)
