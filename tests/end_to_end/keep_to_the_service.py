"""The service refuses what was shown ahead of its answer and calls its board unchanged from then on;
a reviewer goes and comes back. In the end the screen tells what the service holds."""

import sys

from desk import SIGNED_IN, Desk, expect, run, wait_until
from review_a_proof import place, proof_to_review

BUTTON = ("push button", "button")


def refuse(method, path, text):
    return {"method": method, "path": path, "status": 409, "body": f'{{"error": "{text}"}}'}


def refused_decision(reader, service, ticket):
    """Its ticket cannot be had at once either: after the refusal, and by the next poll."""
    undecided = len(reader.find_all("Fine", roles=BUTTON))
    service.fail_with(refuse("POST", "/api/findings/", "Already decided."),
                      {"method": "GET", "path": f"/api/files/{ticket}", "times": 2, "status": 503})
    fetched = len(service.requests("GET", f"api/files/{ticket}"))
    reader.press_named("Fine", roles=BUTTON)
    reader.find("Already decided.")
    service.wait_for_request("GET", f"api/files/{ticket}", count=fetched + 3)
    wait_until("the finding to wait again",
               lambda: len(reader.find_all("Fine", roles=BUTTON)) == undecided)


def refused_review(reader, service, ticket, heading):
    service.fail_with(refuse("POST", f"/api/files/{ticket}/status", "It is out."))
    reader.press_named("Mark reviewed", roles=BUTTON)
    reader.find("It is out.")
    polls = len(service.requests("GET", "api/state"))
    later = service.wait_for_request("GET", "api/state", count=polls + 2)[polls - 1:]
    expect(any(not entry.get("if_none_match") for entry in later), "no poll was whole")
    reader.press_named(heading, roles=("list item",))
    reader.find("Mark reviewed", roles=BUTTON)


def keep(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        detail, page = proof_to_review(service.state())
        ticket = detail["file"]["id"]
        heading = f"{detail['file']['title']} {detail['file']['component']}"
        reader.press_named(heading, roles=("list item",))
        reader.find(contains=place(detail, page))

        refused_decision(reader, service, ticket)
        refused_review(reader, service, ticket, heading)
        reader.find(contains=place(detail, page))

        # The service knows the ticket's tag from the session before, which has taken the ticket along.
        reader.click(reader.find(name="Vellix", roles=("menu item",)))
        reader.click(reader.find(name="Sign out", roles=("menu item",)))
        reader.find(name="Supplier proofs, checked against what we sent.")
        desk.second_start(SIGNED_IN.format("renny"))
        reader.find(contains=place(detail, page))
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(keep))
