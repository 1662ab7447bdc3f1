"""A reviewer signs in, opens a proof, turns a page, calls a finding a real issue, and undoes it."""

import json
import sys

from desk import Desk, expect, run, wait_until


def proof_to_review(state):
    """A new title with a grave finding that nobody has decided, and a page after the finding's."""
    for detail in state["files"].values():
        file = detail["file"]
        grave = [finding for finding in detail["findings"]
                 if finding["state"] == "open" and finding["severity"] == "high"]
        if file["track"] == "new_title" and file["status"] == "new" and grave:
            page = grave[0]["page"]
            if page + 1 < len(file["pages"]):
                return detail, page
    raise AssertionError("the demo has no proof to review")


def place(detail, page):
    pages = detail["file"]["pages"]
    return f"p{pages[page]['label']} · {page + 1} of {len(pages)}"


def state_of(service, ticket, finding):
    findings = service.state()["files"][ticket]["findings"]
    return next(entry["state"] for entry in findings if entry["id"] == finding)


def review(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        detail, page = proof_to_review(service.state())
        ticket = detail["file"]["id"]
        heading = f"{detail['file']['title']} {detail['file']['component']}"
        open_here = {finding["id"] for finding in detail["findings"]
                     if finding["page"] == page and finding["state"] == "open"}

        # The link's code is exchanged, the board comes, and the proof opens on what is grave.
        reader.press_named(heading, roles=("list item",))
        service.wait_for_request("GET", f"api/files/{ticket}")
        reader.find(contains=place(detail, page))
        service.wait_for_request("GET", "api/blob/files/")

        reader.press_named("Next page")
        reader.find(contains=place(detail, page + 1))
        reader.press_named("Previous page")
        reader.find(contains=place(detail, page))

        reader.press_named("Real issue")
        reader.find(contains="Marked a real issue.")
        marked = service.wait_for_request("POST", "api/findings/")[0]
        finding = marked["path"].rsplit("/", 1)[-1]
        expect(finding in open_here, f"{finding} is not one of the page's open findings {open_here}")
        expect(json.loads(marked["body"]) == {"state": "issue"}, f"it was sent as {marked['body']}")
        wait_until("the service to hold it as an issue",
                   lambda: state_of(service, ticket, finding) == "issue")

        reader.press_named("Undo")
        reader.find(contains="Reopened.")
        undone = service.wait_for_request("POST", "api/findings/", count=2)[1]
        expect(undone["path"] == marked["path"], f"the undo went to {undone['path']}")
        expect(json.loads(undone["body"]) == {"state": "open"}, f"it was sent as {undone['body']}")
        wait_until("the service to hold it as open",
                   lambda: state_of(service, ticket, finding) == "open")

        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(review))
