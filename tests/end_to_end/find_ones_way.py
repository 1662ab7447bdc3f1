"""A reviewer flips the queues, keeps to their own tickets, picks two at once, and refreshes."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_SELECTED


def tickets(reader):
    return [node.name for node in reader.rows("Tickets")]


def open_headings(state, track, assignee=None):
    """The headings of the queue's tickets that are not reviewed, in no order."""
    files = [detail["file"] for detail in state["files"].values()]
    return sorted(" ".join(filter(None, (file.get("title"), file.get("component"))))
                  for file in files
                  if file.get("track", "new_title") == track and file["status"] != "reviewed"
                  and assignee in (None, file.get("assignee")))


def look_around(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        state = service.state()
        titles, reprints = (open_headings(state, track) for track in ("new_title", "reprint"))

        def comes_to(expected):
            wait_until(f"the tickets {expected}", lambda: sorted(tickets(reader)) == expected)

        comes_to(titles)
        reader.press_named("Reprints", roles=("radio button",))
        comes_to(reprints)
        reader.press_named("New titles", roles=("radio button",))
        comes_to(titles)

        mine = open_headings(state, "new_title", "renny@tessarine.example")
        expect(mine != titles, "the demo gives one reviewer every new title")
        reader.press_named("Only mine", roles=("check box",))
        comes_to(mine)
        reader.press_named("Only mine", roles=("check box",))
        comes_to(titles)

        # Two tickets at once, with the Command key held; a plain click leaves the last alone.
        first, second = tickets(reader)[:2]
        reader.click(reader.find(first, roles=("list item",)))
        selected_come_to(reader, [first])
        reader.click(reader.find(second, roles=("list item",)), held="ctrl")
        selected_come_to(reader, [first, second])
        reader.click(reader.find(second, roles=("list item",)))
        selected_come_to(reader, [second])

        # The pill that says how fresh the board is refreshes it. The answer is a whole board.
        service.clear_log()
        reader.press_named("Up to date")
        reader.find("Up to date.")
        wait_until("an unconditional poll", lambda: any(
            entry.get("if_none_match") is None
            for entry in service.requests("GET", "api/state")))

        # Both people were here within the last minutes.
        for person in ("Your page and stats", "Jorvas's page and stats"):
            wait_until(f"{person} to be here", lambda person=person: "In Vellix now" in [
                reader.description(node) for node in reader.find_all(person)])
        desk.close_window()


def selected_come_to(reader, expected):
    wait_until(f"{expected} to be selected", lambda: [
        node.name for node in reader.rows("Tickets")
        if reader.has(node, STATE_SELECTED)] == expected)


if __name__ == "__main__":
    sys.exit(run(look_around))
