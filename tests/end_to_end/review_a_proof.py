"""A reviewer signs in, opens a proof, turns a page, calls a finding a real issue, and undoes it."""

import sys

from desk import Desk, expect, run, wait_until
from reader import PRESSABLE

ROWS = ("list item", "push button", "button")


def open_findings(board, state):
    """The ids of a proof's findings in a state, from the service's own books."""
    return {finding["id"] for finding in state["files"][board]["findings"]
            if finding["state"] == state}


def body_of(entry):
    import json
    body = entry["body"]
    return json.loads(body) if isinstance(body, str) else body


def review(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service

        # The link's code is exchanged, and the board comes.
        service.wait_for_request("GET", "api/state")
        ticket = wait_until("a ticket with an open finding", lambda: ticket_to_review(service))
        row = reader.find(contains=ticket["heading"], roles=ROWS)
        service.clear_log()
        reader.press(row)
        service.wait_for_request("GET", f"api/files/{ticket['id']}")

        # The page that opens has pictures, and so has the next.
        service.wait_for_request("GET", "blob/")
        reader.press_named("Next page")
        reader.press_named("Previous page")

        service.clear_log()
        reader.press_named("Real issue")
        reader.find(name="Marked a real issue.")
        marked = service.wait_for_request("POST", "api/findings/")[0]
        expect(body_of(marked) == {"state": "issue"}, f"the finding was sent as {marked}")
        finding = marked["path"].rstrip("/").rsplit("/", 1)[-1]
        wait_until("the service to hold the finding as an issue",
                   lambda: state_of(service, finding) == "issue")

        reader.press_named("Undo")
        reader.find(name="Reopened.")
        undone = service.wait_for_request("POST", "api/findings/", count=2)[1]
        expect(undone["path"] == marked["path"], f"the undo went to {undone['path']}")
        expect(body_of(undone) == {"state": "open"}, f"the undo was sent as {undone}")
        wait_until("the service to hold the finding as open",
                   lambda: state_of(service, finding) == "open")

        desk.alive()
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(review))
