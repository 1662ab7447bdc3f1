"""The program stages itself, takes a picture of its window, and ends.

shots_tests.py BUILD
"""

import concurrent.futures
import functools
import json
import os
import socket
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = Path(sys.argv.pop(1) if len(sys.argv) > 1 else "build/release").resolve()
LIMIT = 100  # seconds for one picture on a busy machine
ALIVE = 6  # seconds after which a program that takes no picture is believed to stay

PAGE = "pages_a_1.png"
PAGE_COLOUR = "#0a64c8"
FILE = {"id": "a", "title": "The Lighthouse", "supplier": "Harrow Print", "po": "7",
        "status": "new", "rev": 1, "page_count": 1, "thumb": "pages/a/1.png",
        "track": "new_title",
        "pages": [{"i": 0, "label": "1", "img": "pages/a/1.png", "px": [300, 400],
                   "thumb": "pages/a/1.png", "refs": {}}]}
FINDING = {"id": "f1", "file_id": "a", "page": 0, "kind": "words", "severity": "high",
           "against": "submitted", "title": "One word changed", "box": [0.1, 0.1, 0.2, 0.1],
           "state": "open"}
ME = {"email": "renny@tessarine.example", "name": "Renny Vale"}


def convert(*arguments):
    return subprocess.run(["convert", *map(str, arguments)], check=True, capture_output=True,
                          timeout=LIMIT).stdout.decode()


class Stage:
    """A folder with a profile of its own and the samples."""

    def __init__(self, folder):
        self.folder = Path(folder)
        # Nothing may ever connect here.
        self.service = socket.create_server(("127.0.0.1", 0))
        self.service.setblocking(False)
        self.write_samples()

    def write_samples(self):
        samples = {"good": self.sample(), "broken": b'{"board": {}}', "empty folder": None,
                   "no board": self.sample(files=[])}
        for name, content in samples.items():
            (self.folder / name).mkdir()
            if content is not None:
                (self.folder / name / "sample.json").write_bytes(content)
        convert("-size", "300x400", f"xc:{PAGE_COLOUR}", self.folder / "good" / PAGE)
        (self.folder / "good" / "unreadable.png").write_text("no picture")

    @staticmethod
    def sample(files=(FILE,)):
        board = {"rev": 1, "me": ME, "users": [dict(ME, color="#1a84f0")], "files": list(files),
                 "jobs": [], "reports": [], "events": [], "guests": [], "approvers": []}
        details = {file["id"]: {"file": file, "findings": [FINDING], "comments": [], "events": [],
                                "versions": [], "jobs": []} for file in files}
        return json.dumps({"board": board, "details": details}).encode()

    def environment(self, home, scale):
        (home / "config" / "vellix").mkdir(parents=True)
        (home / "runtime").mkdir(mode=0o700)
        (home / "config" / "vellix" / "defaults.ini").write_text(
            f"[General]\nServerURL=http://127.0.0.1:{self.service.getsockname()[1]}\n")
        return {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "HOME": str(home),
                "XDG_CONFIG_HOME": str(home / "config"), "XDG_CACHE_HOME": str(home / "cache"),
                "XDG_DATA_HOME": str(home / "data"), "XDG_RUNTIME_DIR": str(home / "runtime"),
                "DBUS_SESSION_BUS_ADDRESS": "disabled:", "QT_QPA_PLATFORM": "offscreen",
                "QT_FORCE_STDERR_LOGGING": "1", "QT_SCALE_FACTOR": str(scale)}

    def start(self, name, arguments, scale=1, token=False):
        home = self.folder / "homes" / name
        environment = self.environment(home, scale)
        if token:
            session = home / "config" / "vellix" / "session"
            session.touch(mode=0o600)
            session.write_text("token")
        return subprocess.Popen([BUILD / "vellix", *map(str, arguments)], env=environment,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def shoot(self, name, *arguments, scale=1, token=False, path=None):
        """The exit code, what was printed, what was said on stderr, and the picture's path."""
        path = path or self.folder / f"{name}.png"
        child = self.start(name, ["--shot", path, *arguments], scale, token)
        try:
            out, err = child.communicate(timeout=LIMIT)
        except subprocess.TimeoutExpired:
            child.kill()
            out, err = child.communicate()
        return child.returncode, out.decode(), err.decode(), path

    def was_connected_to(self):
        try:
            self.service.accept()
            return True
        except BlockingIOError:
            return False


class Shots(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory(prefix="vellix-shots-")
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.stage = stage = Stage(cls.temporary.name)
        cls.addClassCleanup(stage.service.close)
        good = ["--sample", stage.folder / "good"]
        small = ["--size", "800x600"]
        shots = {
            "dark": (*good, *small, "--dark"),
            "light": (*good, *small),
            "focus": (*good, *small, "--focus"),
            "asked size": (*good, "--size", "1000x700"),
            "no size": (*good, "--size", "800"),
            "least size": (*good, "--size", "20x20"),
            "sign in": ("--signin", *small),
            "sign in after all": ("--signin", *good, *small),
            "broken": ("--sample", stage.folder / "broken", *small),
            "missing": ("--sample", stage.folder / "nowhere", *small),
            "bare folder": ("--sample", stage.folder / "empty folder", *small),
            "no board": ("--sample", stage.folder / "no board", *small),
            "panel": ("--panel", "lab", *small),
            "small panel": ("--panel", "settings", "--size", "460x380"),
            "no panel": ("--panel", "attic", *good, *small),
            "from the screen": (*good, *small, "--grab"),
        }
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 1) as pool:
            futures = {name: pool.submit(stage.shoot, name, *arguments,
                                         token=name.startswith("sign in"))
                       for name, arguments in shots.items()}
            futures["twice"] = pool.submit(stage.shoot, "twice", *good, *small, scale=2)
            futures["unwritable"] = pool.submit(stage.shoot, "unwritable", *good, *small,
                                                path=stage.folder / "no" / "folder.png")
            cls.taken = {name: future.result() for name, future in futures.items()}

    def path(self, name, printed=""):
        code, out, err, path = self.taken[name]
        self.assertEqual((code, out, err), (0, printed, ""), name)
        return path

    @functools.lru_cache
    def size(self, name):
        return convert(self.path(name), "-format", "%wx%h", "info:")

    def share(self, name, colour):
        """The part of the picture that has just this colour."""
        return float(convert(self.path(name), "-fill", "black", "+opaque", colour, "-fill", "white",
                             "-opaque", colour, "-colorspace", "gray", "-format", "%[fx:mean]",
                             "info:"))

    def same(self, one, other):
        """But for what a minute changes between the two: fewer than one pixel in fifty."""
        done = subprocess.run(["compare", "-metric", "AE", self.path(one), self.path(other),
                               "null:"], check=False, capture_output=True, timeout=LIMIT)
        width, height = map(int, self.size(one).split("x"))
        return (self.size(one) == self.size(other) and
                float(done.stderr.split()[0]) < width * height / 50)

    def test_has_the_size_that_was_asked_for(self):
        self.assertEqual(self.size("light"), "800x600")
        self.assertEqual(self.size("asked size"), "1000x700")
        self.assertEqual(self.size("no size"), "1500x940")
        self.assertEqual(self.size("least size"), "760x540")
        self.assertEqual(self.size("panel"), "800x600")
        self.assertEqual(self.size("small panel"), "460x380")

    def test_has_the_pixels_of_the_device(self):
        self.assertEqual(self.size("twice"), "1600x1200")

    def test_shows_the_sample_with_its_pictures(self):
        for name in ("dark", "light", "twice"):
            self.assertGreater(self.share(name, PAGE_COLOUR), 0.02, name)

    def test_shows_the_spot_of_a_finding(self):
        self.assertFalse(self.same("focus", "light"))

    def test_forces_the_appearance(self):
        self.assertGreater(self.share("light", "#f3f6f7"), 0.05)
        self.assertGreater(self.share("dark", "#12100f"), 0.05)
        self.assertEqual(self.share("dark", "#f3f6f7"), 0)

    def test_stages_the_sign_in_screen_whatever_else_is_there(self):
        self.assertTrue(self.same("sign in", "sign in after all"))
        self.assertEqual(self.share("sign in after all", PAGE_COLOUR), 0)

    def test_says_when_the_sample_does_not_decode(self):
        self.path("broken", "sample.json did not decode\n")

    def test_says_nothing_of_a_sample_that_is_not_there(self):
        self.assertTrue(self.same("missing", "bare folder"))

    def test_shows_an_empty_board(self):
        self.assertFalse(self.same("no board", "missing"))

    def test_shows_a_panel_alone_if_there_is_one_of_that_name(self):
        self.assertFalse(self.same("panel", "no panel"))
        self.assertTrue(self.same("no panel", "light"))

    def test_ends_well_where_the_picture_cannot_be_written(self):
        self.path("unwritable")

    def test_takes_the_pixels_from_the_screen(self):
        self.assertEqual(self.size("from the screen"), "800x600")

    def test_asks_the_service_nothing(self):
        self.assertFalse(self.stage.was_connected_to())

    def test_stays_up_without_a_path(self):
        for name, arguments in {
                "no path": ["--sample", self.stage.folder / "good", "--dark", "--shot"],
                "no shot": ["--sample", self.stage.folder / "broken"]}.items():
            child = self.stage.start(name, arguments)
            try:
                with self.assertRaises(subprocess.TimeoutExpired):
                    child.communicate(timeout=ALIVE)
            finally:
                child.kill()
                out, _ = child.communicate()
            self.assertEqual(out, b"")


if __name__ == "__main__":
    unittest.main()
