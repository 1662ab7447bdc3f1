"""What only a display can tell: the real program in a desktop session without a GPU.

    figures.py BUILD

Start to the first page that is to be seen on the display, and memory with board and page shown,
beside Chromium with the same as a plain page, where Chromium is installed; and that a window that
is hidden or minimised polls without painting. Ends with 1 when something is over its budget.
"""

import json
import os
import re
import shutil
import statistics
import sys
import tempfile
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent.parent / "tests" / "end_to_end"), str(HERE)]

from pixels import Display  # noqa: E402
from plain_page import PlainPage  # noqa: E402
from private_session import PrivateSession, Trouble, wait_until  # noqa: E402
from service import Service  # noqa: E402

ROUNDS = 11
SHARE_OF_CHROMIUM = 0.2
MOST_MEMORY = 48  # MB
AT_REST = 2.0  # seconds after the first page
HIDDEN_FOR = 12.0  # seconds: it polls once more before it takes the longer pause
FRAME = re.compile("rame rendered ")  # by any render loop


class Desktop(PrivateSession):
    """A session in which nobody uses a screen reader, on a display whose memory can be read."""

    def __init__(self):
        super().__init__()
        del self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        self.display_options = ("-fbdir", str(self.folder))

    def _start_accessibility(self):
        pass


def tree(pid):
    """The process and all under it."""
    tasks = Path(f"/proc/{pid}/task")
    children = [int(child) for task in tasks.glob("*/children") for child in
                task.read_text().split()]
    return [pid] + [one for child in children for one in tree(child)]


def memory(pid):
    """PSS of the process and all under it, in MB."""
    total = 0
    for one in tree(pid):
        try:
            lines = Path(f"/proc/{one}/smaps_rollup").read_text().splitlines()
        except (FileNotFoundError, ProcessLookupError):
            continue
        total += sum(int(line.split()[1]) for line in lines if line.startswith("Pss:"))
    return total / 1024


class Bench:
    def __init__(self, build):
        self.build = build
        self.faults = []

    def run(self):
        with Desktop() as self.session:
            self.service = Service(self.session, self.build / "vellix_demo_service")
            self.sign_in()
            self.scene = self.told_scene()
            self.display = Display(self.session.folder)
            self.compare()
            self.hide()
        for fault in self.faults:
            print(f"BROKEN: {fault}")
        return 1 if self.faults else 0

    def sign_in(self):
        folder = Path(self.session.environment["XDG_CONFIG_HOME"]) / "vellix"
        folder.mkdir(parents=True)
        (folder / "defaults.ini").write_text(f"[General]\nServerURL={self.service.base}\n")
        program = self.start("sorel://signed-in?code=demo-renny")
        self.service.wait_for_request("GET", "api/blob/files")
        self.token = wait_until("the session", lambda: (folder / "session").exists()
                                and (folder / "session").read_text())
        time.sleep(AT_REST)
        self.end(program)

    def start(self, *arguments):
        return self.session.start("program", [self.build / "vellix", *arguments])

    def start_chromium(self, url):
        self.profile = tempfile.mkdtemp(dir=self.session.folder)
        flags = ["--kiosk", "--no-first-run", "--no-default-browser-check",
                 f"--user-data-dir={self.profile}"] + ["--no-sandbox"] * (os.geteuid() == 0)
        return self.session.start("chromium", ["chromium", *flags, url])

    def end(self, child):
        self.session.children.remove(child)
        self.session._end(child)

    def told_scene(self):
        """What the program shows, as it tells itself."""
        file = self.session.folder / "scene.json"
        self.session.run("env", "QT_QPA_PLATFORM=offscreen", str(self.build / "vellix_bench"),
                         "--child", "launch", "0", "0", str(file))
        return json.loads(file.read_text())

    def compare(self):
        starts = {"program": self.start}
        if shutil.which("chromium"):
            page = PlainPage(self.scene, self.service.base, self.token,
                             self.build / "src" / "pieces" / "symbols")
            starts["chromium"] = lambda: self.start_chromium(page.url)
        else:
            print("Chromium is not installed: the start is not compared with it.")
        looks, times, sizes = {}, {}, {}
        for name, start in starts.items():
            looks[name] = self.look_at(name, start)
        for _ in range(ROUNDS):
            for name, start in starts.items():
                began = time.monotonic()
                child = start()
                times.setdefault(name, []).append(
                    1000 * (self.display.wait_for(looks[name], child) - began))
                time.sleep(AT_REST)
                sizes.setdefault(name, []).append(memory(child.pid))
                self.finish(child, looks[name])
        self.tell({name: statistics.median(all) for name, all in times.items()},
                  {name: statistics.median(all) for name, all in sizes.items()})

    def look_at(self, name, start):
        """The dark pixels of the pages as this program shows them, once all of it is there."""
        child = start()
        time.sleep(3 * AT_REST)
        pages = [tuple(int(one[side]) for side in "xywh")
                 for one in self.scene["pictures"] if one["page"]]
        looks = self.display.dark(pages)
        if os.environ.get("VELLIX_BENCH_PICTURES"):
            self.session.picture(Path(os.environ["VELLIX_BENCH_PICTURES"]) / f"{name}.png")
        if len(looks) < 100:
            raise Trouble(f"{name} shows no page")
        self.finish(child, looks)
        return looks

    def finish(self, child, looks):
        self.end(child)
        wait_until("an empty display", lambda: not self.display.shows(looks))

    def tell(self, times, sizes):
        print(f"\n{'':52} {'ours':>12} {'Chromium':>12} {'ratio':>8} {'budget':>8}")
        ours, other = times["program"], times.get("chromium")
        self.line("start to the first page on the display", ours, other, "ms", SHARE_OF_CHROMIUM)
        self.line("memory in a desktop session (PSS)", sizes["program"], sizes.get("chromium"),
                  "MB", None)
        if sizes["program"] > MOST_MEMORY:
            self.faults.append(f"{sizes['program']:.1f} MB of memory, and {MOST_MEMORY} at most")

    def line(self, name, ours, other, unit, budget):
        there = f"{other:8.2f} {unit:3} {ours / other:8.2f}" if other else f"{'—':>12} {'—':>8}"
        print(f"{name:52} {ours:8.2f} {unit:3} {there} {budget or '':>8}")
        if budget and other and ours > budget * other:
            self.faults.append(f"{name}: {ours / other:.2f} of Chromium's, and {budget} at most")

    def hide(self):
        """Out of sight it paints nothing, though its polls bring news."""
        self.session.environment["QT_LOGGING_RULES"] = "qt.scenegraph.time.renderloop.debug=true"
        for way, does in (("minimised", "windowminimize"), ("hidden", "windowunmap")):
            program = self.start()
            wait_until("a frame", self.frames)
            time.sleep(3 * AT_REST)
            window = self.session.run("xdotool", "search", "--onlyvisible", "--pid",
                                      str(program.pid)).split()[0]
            self.service.clear_log()
            self.session.run("xdotool", does, window)
            before = self.frames()
            self.service.colleague_acts(text=f"Seen by nobody who is {way}.")
            time.sleep(HIDDEN_FOR)
            painted = self.frames() - before
            polls = len(self.service.requests("GET", "api/state"))
            print(f"{way}: {polls} polls and {painted} frames in {HIDDEN_FOR:.0f} s")
            if painted or not polls:
                self.faults.append(f"{way}: {polls} polls and {painted} frames")
            self.end(program)

    def frames(self):
        return len(FRAME.findall(self.session.errors_of("program")))


if __name__ == "__main__":
    try:
        sys.exit(Bench(Path(sys.argv[1]).resolve()).run())
    except Trouble as trouble:
        sys.exit(f"FAILED: {trouble}")
