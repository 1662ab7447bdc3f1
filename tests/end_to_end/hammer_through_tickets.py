"""Somebody hammers through the tickets of a slow service: the page that they stop at comes first."""

import sys
import time

from desk import Desk, expect, run, wait_until

ROW = ("list item",)
PICTURES = ("image", "graphic", "icon")
SLOW = {"path": "/api/blob/", "times": 100000, "delay_ms": 1500}
STEPS = 20
STEP = "0.175"  # seconds, as fast as a hand goes
# Between the last ticket's detail and its pictures so many of the one before it may go out.
BEFORE_IT = 6


class Ticket:
    def __init__(self, detail):
        self.file = detail["file"]
        self.heading = f"{self.file['title']} {self.file['component']}"
        serious = [each["page"] for each in detail["findings"] if each["severity"] == "high"]
        index = serious[0] if serious else 0
        self.page = self.file["pages"][index]
        name = self.page.get("label") or index + 1
        refs = self.page.get("refs") or {}
        self.pictures = [self.page["img"]] + [ref["img"] for ref in refs.values() if ref.get("img")]
        version = self.file.get("version") or 1
        owner = f"v{version}" if version > 1 else f"{self.file['supplier']} file"
        self.caption = f"{owner} · p{name}"

    def owns(self, path):
        return f"/{self.file['id']}/" in path


def press(reader, row):
    x, y, width, height = wait_until("a row's place", lambda: reader._box(row))
    return ["mousemove", str(x + width // 3), str(y + height // 2), "click", "1"]


def hammer(build):
    with Desk(build) as desk:
        reader, service = desk.reader, desk.service
        reader.find(name="Up to date")
        # All but the one that is due first: it is on show from the start, and has its pictures.
        due = sorted((detail for detail in service.state()["files"].values()
                      if detail["file"].get("track") == "new_title"
                      and detail["file"]["status"] != "reviewed"),
                     key=lambda detail: detail["file"]["due"])
        tickets = [Ticket(detail) for detail in due[1:]]
        last = max(tickets, key=lambda ticket: len(ticket.file["pages"]))
        others = [ticket for ticket in tickets if ticket is not last]
        rows = {ticket.heading: reader.find(name=ticket.heading, roles=ROW) for ticket in tickets}

        service.fail_with(SLOW)
        service.clear_log()
        way = []
        for count in range(STEPS):
            way += press(reader, rows[others[count % len(others)].heading]) + ["sleep", STEP]
        desk.session.run("xdotool", *way, *press(reader, rows[last.heading]))
        begun = time.monotonic()
        wait_until("the page", lambda: {f"/api/blob/{picture}" for picture in last.pictures} <= {
            entry["path"] for entry in service.log() if entry["status"] == 200})
        took = time.monotonic() - begun
        reader.find(name=last.caption, roles=PICTURES)
        print(f"the page came after {took:.1f} s")

        # From when its detail was asked for.
        paths = [entry["path"] for entry in service.log()]
        paths = paths[paths.index(f"/api/files/{last.file['id']}"):]
        own = max(paths.index(f"/api/blob/{picture}") for picture in last.pictures)
        passed = [path for path in paths if path.startswith("/api/blob/") and not last.owns(path)]
        behind = [path for path in paths[own:] if path in passed]
        expect(len(passed) <= BEFORE_IT, f"pictures of tickets passed by came before: {passed}")
        expect(not behind, f"pictures that nobody needs were asked for after it: {behind}")

        # What was dropped on the way comes when it is wanted.
        service.fail_with()
        for ticket in others:
            reader.press(rows[ticket.heading])
            reader.find(name=ticket.caption, roles=PICTURES)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(hammer))
