"""From a finding to the last page and back by the page keys alone, while pictures take their time:
no field takes the keyboard on the way."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_FOCUSED

TICKET = "bread-text"  # pages with findings and pages without
TEXT = ("text", "entry")


def turn(desk, key, name):
    desk.reader.key(key)
    desk.reader.find(f"Page {name}", roles=("heading",))
    written = [node.name for node in desk.reader.find_all(roles=TEXT)
               if desk.reader.has(node, STATE_FOCUSED)]
    expect(not written, f"on page {name} {written} took the keyboard")


def turn_the_pages(build):
    with Desk(build) as desk:
        file = desk.service.state()["files"][TICKET]
        names = [page["label"] for page in file["file"]["pages"]]
        desk.reader.press_named(f"{file['file']['title']} {file['file']['component']}",
                                roles=("list item",))
        desk.service.fail_with({"path": "/api/blob/", "delay_ms": 700, "times": 100_000})
        desk.reader.press_named(names[1], roles=("list item",))
        desk.reader.find(f"Page {names[1]}", roles=("heading",))
        title = next(each["title"] for each in file["findings"]
                     if each["page"] == 1 and each["kind"] not in ("expected", "pass"))
        desk.reader.tab_to(title, ("list item",))
        for name in names[2:]:
            turn(desk, "ctrl+Down", name)
        for name in reversed(names[1:-1]):
            turn(desk, "ctrl+Up", name)
        wait_until("the keyboard back on the finding", lambda: any(
            desk.reader.has(node, STATE_FOCUSED)
            for node in desk.reader.find_all(title, roles=("list item",))))
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(turn_the_pages))
