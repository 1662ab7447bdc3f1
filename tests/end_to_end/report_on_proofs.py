"""A reviewer goes through a proof by its page strip, has a report made, stops it, and asks for one
report on two proofs."""

import json
import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_SELECTED

BUTTON = ("push button", "button")
# Every step of a report lasts long enough to be seen by the program's three-second polls.
PACE = "3"


def open_pages(reader):
    return [node.name for node in reader.rows("Pages") if reader.has(node, STATE_SELECTED)]


def asked_for(service, count):
    posts = [entry for entry in service.wait_for_request("POST", "api/jobs", count=count)
             if entry["path"].endswith("api/jobs")]
    return json.loads(posts[-1]["body"])


def report(build):
    with Desk(build, service_arguments=("--no-colleague", "--pace", PACE)) as desk:
        reader, service = desk.reader, desk.service
        first, second = wait_until("two tickets", lambda: [
            node.name for node in reader.rows("Tickets")][:2])
        files = {" ".join(filter(None, (detail["file"].get("title"), detail["file"].get("component")))):
                 detail["file"] for detail in service.state()["files"].values()
                 if detail["file"].get("track", "new_title") == "new_title"}

        # The strip goes where it is told to, and follows where one goes by other means.
        reader.press_named(first, roles=("list item",))
        pages = files[first]["pages"]
        wait_until("the pages", lambda: len(reader.rows("Pages")) > 1)
        reader.press_named(pages[1]["label"], roles=("list item",))
        reader.find(contains=f"p{pages[1]['label']} · 2 of {len(pages)}")
        wait_until("the second page to be marked", lambda: open_pages(reader) == [pages[1]["label"]])
        reader.press_named("Next page")
        wait_until("the third page to be marked", lambda: open_pages(reader) == [pages[2]["label"]])

        # The same by key alone; and the strip goes and comes by the menu.
        reader.tab_to(pages[2]["label"], roles=("list item",))
        reader.key("End", "Return")
        wait_until("the last page to be marked", lambda: open_pages(reader) == [pages[-1]["label"]])
        for entry, there in (("Hide the page strip", False), ("Show the page strip", True)):
            reader.click(reader.find(name="View ", roles=("menu item",)))
            reader.click(reader.find(name=entry, roles=("menu item",)))
            wait_until(f"what follows \"{entry}\"",
                       lambda there=there: bool(reader.find_all("Pages", roles=("list",))) == there)

        reader.press_named("Make report")
        expect(asked_for(service, 1) == {"kind": "report", "file_ids": [files[first]["id"]]},
               "the report is on something else")
        reader.find("Asked the Mac mini for the report.")
        reader.find(contains="Ready in about")
        reader.press(reader.find("Stop", roles=BUTTON))
        stopped = service.wait_for_request("POST", "api/jobs/job-")[0]
        expect(stopped["path"].endswith("/stop"), f"the stop went to {stopped['path']}")
        expect(json.loads(stopped["body"]) == {}, f"it was sent as {stopped['body']}")
        reader.find("Make report", roles=BUTTON)

        # Two at once make one report.
        reader.click(reader.find(second, roles=("list item",)), held="ctrl")
        reader.find("2 files", roles=("heading",))
        reader.find(f"{first} · {second}")
        service.clear_log()
        reader.press_named("Make one report")
        asked = asked_for(service, 1)
        expect(asked["kind"] == "report" and
               sorted(asked["file_ids"]) == sorted([files[first]["id"], files[second]["id"]]),
               f"asked for as {asked}")
        reader.find(contains="Ready in about")
        reader.find("Make one report", roles=BUTTON, limit=60)

        # It is told of with each of them.
        reader.click(reader.find(second, roles=("list item",)))
        reader.find("New report", roles=BUTTON)
        reader.find(contains="Report by You · ")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(report))
