"""Deciding as fast as one can press, while the service takes its time: each press decides one
finding, none twice, and none takes back what one before it decided."""

import json
import os
import signal
import sys
import time

from desk import Desk, expect, run, wait_until
from reader import STATE_FOCUSED

TICKET = "carto-text"
BUTTON = ("push button", "button", "toggle button", "check box")
FOUND = 12


class Pace:
    """Presses at fixed times, however long each takes."""

    def __init__(self, seconds):
        self.seconds, self.next = seconds, time.monotonic()

    def wait(self):
        time.sleep(max(0.0, self.next - time.monotonic()))
        self.next += self.seconds


def decisions(desk):
    """Which finding was told what, in order."""
    return [(entry["path"].rsplit("/", 1)[1], json.loads(entry["body"])["state"])
            for entry in desk.service.requests("POST", "api/findings/")]


def states(desk, page):
    return [each["state"] for each in desk.service.state()["files"][TICKET]["findings"]
            if each["page"] == page]


def open_page(desk, page):
    """A page full of findings that nobody has decided."""
    desk.service.find_more(TICKET, page, FOUND)
    name = desk.service.state()["files"][TICKET]["file"]["pages"][page]["label"]
    desk.reader.press_named(name, roles=("list item",))
    desk.reader.find(f"{FOUND} found")


def buttons(desk):
    return desk.reader.find_all("Real issue", roles=BUTTON)


def keyboard_is_in_a_decision(desk):
    return any(desk.reader.has(node, STATE_FOCUSED) for node in buttons(desk))


def each_decided_once(desk, how):
    told = decisions(desk)
    ids = [finding for finding, _ in told]
    expect(len(set(ids)) == len(ids), f"{how}: one was decided anew: {told}")
    expect({state for _, state in told} == {"issue"}, f"{how}: one was taken back: {told}")
    return told


def by_space(desk, page, in_front):
    open_page(desk, page)
    if in_front:
        desk.reader.click(desk.reader.find("A word has changed in line 1", roles=("list item",)))
    desk.reader.tab_to("Real issue", BUTTON)
    desk.service.clear_log()
    pace = Pace(0.4)
    for _ in range(FOUND):
        pace.wait()
        desk.reader.key("space")
    wait_until("twelve decisions", lambda: len(decisions(desk)) >= FOUND)
    told = each_decided_once(desk, "by Space")
    expect(len(told) == FOUND, f"{len(told)} were decided")
    wait_until("all decided", lambda: states(desk, page) == ["issue"] * FOUND)


def by_mouse(desk, page):
    open_page(desk, page)
    desk.service.clear_log()
    pace = Pace(0.8)
    for _ in range(FOUND - 1):
        pace.wait()
        desk.reader.click(buttons(desk)[0])
    wait_until("the decisions", lambda: len(decisions(desk)) >= FOUND - 1)
    each_decided_once(desk, "by mouse")


def while_the_window_is_busy(desk, page):
    """Two presses that the program hears of only later."""
    open_page(desk, page)
    desk.reader.click(desk.reader.find("A word has changed in line 1", roles=("list item",)))
    desk.reader.tab_to("Real issue", BUTTON)
    desk.service.clear_log()
    busy(desk, lambda: desk.reader.key("space"), lambda: desk.reader.key("space"))
    wait_until("two decisions", lambda: len(decisions(desk)) >= 2)
    expect(len(each_decided_once(desk, "by Space, busy")) == 2, "one more was decided")

    desk.service.clear_log()
    place = wait_until("a place", lambda: desk.reader._box(buttons(desk)[0]))
    x, y = place[0] + place[2] // 2, place[1] + place[3] // 2
    desk.session.run("xdotool", "mousemove", str(x), str(y))
    click = lambda: desk.session.run("xdotool", "click", "1")
    busy(desk, click, click)
    wait_until("a decision", lambda: decisions(desk))
    # Long enough for one more, which must not come.
    time.sleep(1)
    each_decided_once(desk, "by mouse, busy")


def busy(desk, *presses):
    os.kill(desk.program.pid, signal.SIGSTOP)
    try:
        for press in presses:
            press()
            time.sleep(0.6)
    finally:
        os.kill(desk.program.pid, signal.SIGCONT)


def decide_fast(build):
    with Desk(build) as desk:
        title = desk.service.state()["files"][TICKET]["file"]
        desk.reader.press_named(f"{title['title']} {title['component']}", roles=("list item",))
        desk.service.take_time(150)
        by_space(desk, 1, in_front=True)
        desk.service.take_time(700)
        by_space(desk, 2, in_front=False)
        by_mouse(desk, 3)
        desk.service.take_time(150)
        while_the_window_is_busy(desk, 4)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(decide_fast))
