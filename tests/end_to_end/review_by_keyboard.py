"""A whole ticket is reviewed without a mouse: by Tab, F6, the arrows, Return and the menu's keys."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_FOCUSED

BUTTON = ("push button", "button")
ROW = ("list item",)
TEXT = ("text", "entry")


def ticket_to_review(state):
    """A new title of several pages whose findings all wait."""
    for detail in state["files"].values():
        waiting = [each for each in detail["findings"] if each["state"] == "open"]
        pages = {each["page"] for each in waiting}
        if (detail["file"].get("track", "new_title") == "new_title" and len(pages) > 1
                and len(waiting) == len(detail["findings"])):
            return detail["file"], waiting
    raise AssertionError("the demo has no ticket to review")


def keyed(reader):
    """What has the keyboard, within whatever has it as a whole."""
    return next((node for node in reversed(reader.everything())
                 if reader.has(node, STATE_FOCUSED) and node.role not in ("frame", "filler")), None)


def review(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        file, waiting = ticket_to_review(service.state())
        ticket, heading = file["id"], f"{file['title']} {file['component']}"

        def findings():
            return service.state()["files"][ticket]["findings"]

        def left():
            return [each for each in findings() if each["state"] == "open"]

        reader.find(heading, roles=ROW)
        reader.go_to_ticket(heading)
        reader.key("Return")
        reader.find(heading, roles=("heading",))

        # Round the window, by its header, the page and the panel.
        def comes_to(name, roles):
            wait_until(f'the keyboard at "{name}"', lambda: (node := keyed(reader)) is not None
                       and node.name == name and node.role in roles)

        comes_to(heading, ROW)
        reader.key("F6")
        comes_to(heading, ("heading",))
        reader.key("F6", "F6")
        comes_to("This page", ("page tab",))
        reader.key("F6")
        comes_to(heading, ROW)
        reader.key("shift+F6")
        comes_to("This page", ("page tab",))

        # The keyboard goes on from finding to finding, and from page to page.
        reader.find("Real issue", roles=BUTTON)
        while left():
            page = min(each["page"] for each in left())
            name = file["pages"][page].get("label", str(page + 1))
            if not reader.find_all(f"Page {name}", roles=("heading",)):
                reader.key("ctrl+Down")
                reader.find(f"Page {name}", roles=("heading",))
            count = len(left())
            reader.tab_to("Real issue", roles=BUTTON)
            reader.key("Return")
            wait_until("a decision", lambda count=count: len(left()) == count - 1)
            expect(keyed(reader) is not None, "the keyboard is lost")
        expect({each["state"] for each in findings()} == {"issue"}, f"decided as {findings()}")

        # A note on the page.
        reader.tab_to("Write a note for the report", roles=TEXT)
        reader.type("All of it looked at")
        reader.key("ctrl+Return")
        reader.find("Note added.")
        notes = service.state()["files"][ticket]["comments"]
        expect([note["text"] for note in notes][-1] == "All of it looked at", f"the notes are {notes}")
        expect(keyed(reader).name == "Write a note for the report", f"the keyboard is at {keyed(reader)}")

        # And on to the next one, where the keyboard is at hand again.
        reader.key("ctrl+d")
        reader.find("Marked reviewed.")
        state = service.state()["files"][ticket]["file"]
        expect(state["status"] == "reviewed", f"it is {state['status']}")
        reader.gone(heading, roles=("heading",))
        reader.find("Mark reviewed", roles=BUTTON)
        expect(len(waiting) > 2, "too little was there to decide")
        wait_until("the keyboard at the next ticket",
                   lambda: (node := keyed(reader)) is not None and node.name != "")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(review))
