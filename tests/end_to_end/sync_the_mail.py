"""A reviewer has the supplier mail synced, sees the new proof come in, and stops a second sync."""

import json
import sys

from desk import Desk, expect, run, wait_until

BUTTON = ("push button", "button")
# Every step of a sync lasts long enough to be seen by the program's three-second polls.
PACE = "2"


def tickets(reader):
    return [node.name for node in reader.rows("Tickets")]


def sync(build):
    with Desk(build, service_arguments=("--no-colleague", "--pace", PACE)) as desk:
        reader, service = desk.reader, desk.service
        before = wait_until("the tickets", lambda: tickets(reader))

        reader.press_named("Sync")
        asked = service.wait_for_request("POST", "api/jobs")[0]
        expect(json.loads(asked["body"]) == {"kind": "sync"}, f"asked for as {asked['body']}")
        reader.find("Asked the Mac mini to sync.")
        wait_until("the button to make way", lambda: not reader.find_all("Sync", roles=BUTTON))
        # A step of the worker stands in the place of the button.
        step = wait_until("a step of the sync", lambda: next(
            (node.name for node in reader.find_all()
             if node.name in ("Reading supplier mail", "Filing to Drive", "Checking pages")), None))
        expect(reader.find_all("Stop", roles=BUTTON), f"nothing stops it at {step}")

        # It ends, and what it brought lies on the board.
        reader.find("Sync", roles=BUTTON, limit=60)
        wait_until("the new proof", lambda: len(tickets(reader)) == len(before) + 1)

        # So says the log of the worker, and of the proof whose barcode it has doubts about.
        reader.press_named("What Claude did on the Mac mini", roles=BUTTON)
        reader.find(name="Last sync", roles=("heading",))
        reader.find(name="Needs a look")
        reader.find(contains="By You")
        reader.key("Escape")
        reader.gone(name="Last sync")

        reader.press_named("Sync")
        reader.press(reader.find("Stop", roles=BUTTON))
        stopped = service.wait_for_request("POST", "api/jobs/job-")[0]
        expect(stopped["path"].endswith("/stop"), f"the stop went to {stopped['path']}")
        expect(json.loads(stopped["body"]) == {}, f"it was sent as {stopped['body']}")
        reader.find("Stopping.")
        reader.find("Sync", roles=BUTTON)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(sync))
