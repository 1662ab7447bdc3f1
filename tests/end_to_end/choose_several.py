"""Several tickets are chosen by keys alone, and one of them again, as by Control-click."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_SELECTED

ROW = ("list item",)


def chosen(desk):
    return [row.name for row in desk.reader.rows("Tickets") if desk.reader.has(row, STATE_SELECTED)]


def wait_for(desk, names):
    wait_until(f"{names} chosen", lambda: sorted(chosen(desk)) == sorted(names))


def choose_several(build):
    with Desk(build) as desk:
        names = [row.name for row in wait_until("tickets", lambda: desk.reader.rows("Tickets"))][:3]
        desk.service.take_time(400)
        first = wait_until("the first one", lambda: chosen(desk))[0]
        others = [name for name in names if name != first][:2]
        desk.reader.go_to_ticket(others[0])
        desk.reader.key("ctrl+space")
        wait_for(desk, [first, others[0]])
        desk.reader.find(contains="2 files")
        desk.reader.go_to_ticket(others[1])
        desk.reader.key("ctrl+Return")
        wait_for(desk, [first, *others])
        desk.reader.find(contains="3 files")
        desk.reader.key("ctrl+space")
        wait_for(desk, [first, others[0]])
        desk.reader.key("space")
        wait_for(desk, [others[1]])
        desk.reader.find(others[1], roles=("heading",))
        # The same by the pointer.
        row = desk.reader.find(others[0], roles=ROW)
        desk.reader.click(row, held="ctrl")
        wait_for(desk, others)
        expect(not desk.service.requests("POST", "api/files/"), "something was sent")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(choose_several))
