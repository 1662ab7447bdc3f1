"""A newer build is offered beside the work, which stays as it is; a copy that is too old is stopped by
a screen in front of everything, and goes on where it was when it may again."""

import sys
from collections import Counter

from desk import Desk, expect, run, wait_until
from hearing import Hearing
from logind import Logind
from reader import PRESSABLE, STATE_FOCUSED

BUTTON = ("push button", "button")
TEXT = ("text", "entry")
DIALOG = ("dialog",)
TICKET = "carto-text"
NOTE = "Write a note for the report"
ADDRESS = "Address"
NOTES = "Turns the pages of a proof faster."
FAULTS = ({"status": 500}, {"garbage": True}, {"cut": True},
          {"status": 200, "body": '{"version": "9", "build": 99}'})


class DeskThatSleeps(Desk):
    """The login manager is there before the program asks for it; so is what is said of builds."""

    def __init__(self, build, newest=None, **options):
        super().__init__(build, **options)
        self.newest = newest or {}

    def start_program(self, url=None):
        self.logind = Logind(self.session)
        self.own = self.service.newest()["build"]
        if self.newest:
            self.newest.setdefault("build", self.own + 1)
        self.service.feed(**self.newest)
        super().start_program(url)

    def check(self, times=1):
        """Has the program ask for the newest build, as it does when the machine wakes. It has taken
        one answer when it asks the next time."""
        for _ in range(times):
            asked = len(self.service.requests("GET", "version.json"))
            self.logind.wake()
            self.service.wait_for_request("GET", "version.json", count=asked + 1)

    def hears(self, **newest):
        self.service.feed(**newest)
        self.check()


def keyed(reader, name, roles=TEXT):
    """The field that has the keyboard."""
    return next((node for node in reader.find_all(name=name, roles=roles)
                 if reader.has(node, STATE_FOCUSED)), None)


def writes(desk, words, name=NOTE):
    """That the keyboard is in that field still, behind what was written there before."""
    reader = desk.reader
    field = wait_until(f'the keyboard to be at "{name}"', lambda: keyed(reader, name))
    before = reader.text(field)
    reader.type(words)
    wait_until(f"{before + words!r} to stand there", lambda: reader.text(field) == before + words)


def places(reader):
    """Where everything is that has a name of its own."""
    nodes = [node for node in reader.everything() if node.name]
    count = Counter((node.role, node.name) for node in nodes)
    boxes = reader.boxes(nodes)
    return {(node.role, node.name): tuple(box) for node, box in zip(nodes, boxes)
            if box and count[node.role, node.name] == 1}


def moved(before, after, height):
    """What is elsewhere than before, but for what makes room of that height."""
    return {key: (box, after[key]) for key, box in before.items()
            if key in after and not (box[0] == after[key][0] and box[2] == after[key][2]
                                     and 0 <= after[key][1] - box[1] <= height)}


def height_of(reader, name):
    bar = reader.find_all(name=name)
    box = reader.boxes(bar)[0] if bar else None
    return box[3] if box else 0


def stay_quiet(desk, hearing):
    """Nothing newer, or nothing that can be read, is no news."""
    desk.check(2)
    desk.service.feed(build=desk.own + 1)
    for fault in FAULTS:
        desk.service.fail_with({"path": "/version.json", "times": 1000, **fault})
        desk.check(2)
    desk.service.feed()
    desk.service.fail_with()
    desk.check(2)
    expect(not desk.reader.find_all("Update now"), "something is offered")
    expect(not hearing.spoken(), f"heard {hearing.spoken()}")


def be_offered(desk):
    reader = desk.reader
    name = f"Vellix 1.1 ({desk.own + 1}) is ready. {NOTES}"
    reader.click(reader.find(NOTE, roles=TEXT))
    writes(desk, "The folio is ")
    before = places(reader)
    desk.hears(version="1.1", build=desk.own + 1, notes=NOTES)
    reader.find(name)
    reader.find("Later", roles=BUTTON)
    wait_until("the work to be where it was",
               lambda: not moved(before, places(reader), height_of(reader, name)))
    expect(height_of(reader, name) > 20, "it cannot be seen")
    writes(desk, "a line ")

    reader.click(reader.find("Later", roles=BUTTON))
    reader.gone("Update now")
    wait_until("everything to be back", lambda: not moved(before, places(reader), 0))
    writes(desk, "too ")
    desk.check(2)
    expect(not reader.find_all("Update now"), "it is offered again at once")


def be_stopped(desk):
    """From now on there is nothing but the screen."""
    reader = desk.reader
    desk.hears(version="1.2", build=desk.own + 2, min_build=desk.own + 1)
    reader.find("Update Vellix", roles=("heading",))
    reader.find(f"Vellix 1.2 ({desk.own + 2}) is out, and this copy is too old to keep going. "
                "It takes about a minute and reopens by itself.")
    alone(desk)


def alone(desk):
    offered = [node.name for node in desk.reader.find_all(roles=PRESSABLE + TEXT + DIALOG)]
    expect(offered == ["Update now"], f"beside the update there is {offered}")


def go_on(desk):
    desk.hears()
    desk.reader.gone("Update Vellix")


def come_past(desk, hearing):
    """Not by what was being written, by Tab, by a key of the menus' or by Esc."""
    reader, service = desk.reader, desk.service
    service.clear_log()
    heard = len(hearing.spoken())
    reader.key("ctrl+z", "ctrl+r", "ctrl+d", "ctrl+y", "ctrl+shift+s", "ctrl+shift+p", "ctrl+comma",
               "ctrl+alt+i", "ctrl+equal", "ctrl+Down", "F10", "Escape", "Return", "space")
    reader.type("low\n \n")
    for _ in range(4):
        reader.key("Tab")
        held = [node.name for node in reader.everything() if reader.has(node, STATE_FOCUSED)
                and node.role in PRESSABLE + TEXT]
        expect(held in ([], ["Update now"]), f"the keyboard is at {held}")
    desk.check(2)
    alone(desk)
    expect(len(reader.find_all(roles=("frame", "window"))) == 1, "another window has opened")
    done = [entry for entry in service.log() if entry["method"] != "GET"]
    expect(not done, f"behind the screen somebody did {done}")
    expect(not hearing.spoken()[heard:], f"heard {hearing.spoken()[heard:]}")
    expect(not desk.browser.pages(), f"the browser was sent to {desk.browser.pages()}")


def update(desk, page, press):
    press()
    url = desk.browser.wait_for_page(page)
    expect(url == desk.service.newest()["url"], f"it is {url}")
    expect(f"Vellix 1.2 ({desk.own + 2})" in desk.browser.load(url), "another build lies there")


def by_key(desk):
    desk.reader.tab_to("Update now", BUTTON)
    desk.reader.key("Return")


def by_mouse(desk):
    desk.reader.click(desk.reader.find("Update now", roles=BUTTON))


def leave_a_popover(desk):
    desk.reader.press_named("Assign", roles=BUTTON)
    desk.reader.find("Jorvas Lind", roles=("radio button",))
    be_stopped(desk)
    update(desk, 2, lambda: by_mouse(desk))
    go_on(desk)
    desk.reader.find("Jorvas Lind", roles=("radio button",))
    desk.reader.key("Escape")
    desk.reader.gone("Jorvas Lind", roles=("radio button",))


def leave_a_sheet(desk):
    reader = desk.reader
    reader.press_named("Send for approval", roles=BUTTON)
    reader.find("Send v1 for approval", roles=DIALOG)
    writes(desk, "una@", ADDRESS)
    be_stopped(desk)
    reader.key("Escape")
    update(desk, 3, lambda: by_mouse(desk))
    alone(desk)
    go_on(desk)
    writes(desk, "tessarine.example", ADDRESS)
    reader.key("Escape")
    reader.gone("Send v1 for approval", roles=DIALOG)


def learn(build):
    with DeskThatSleeps(build) as desk:
        reader = desk.reader
        file = desk.service.state()["files"][TICKET]["file"]
        reader.press_named(f"{file['title']} {file['component']}", roles=("list item",))
        reader.find(name="Approval", roles=("heading",))
        hearing = Hearing(reader)
        stay_quiet(desk, hearing)
        be_offered(desk)
        be_stopped(desk)
        come_past(desk, hearing)
        update(desk, 1, lambda: by_key(desk))
        go_on(desk)
        writes(desk, "low")
        field = keyed(reader, NOTE)
        expect(reader.text(field) == "The folio is a line too low", f"it is {reader.text(field)!r}")
        leave_a_popover(desk)
        leave_a_sheet(desk)
        # What could not be done behind the screen can be done now.
        reader.key("ctrl+d")
        desk.service.wait_for_request("POST", f"api/files/{TICKET}/status")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(learn))
