"""A proof goes out by mail, who has not answered is written to again, and it is taken back."""

import json
import sys
import urllib.parse

from desk import Desk, expect, run, wait_until

TICKET = "carto-text"
BUTTON = ("button", "push button")
MIRA, TOMAS = "mira@tessarine.example", "tomas@tessarine.example"


def ticket(service):
    return service.state()["files"][TICKET]


def asked(service, count):
    return json.loads(service.wait_for_request("POST", f"api/files/{TICKET}/approval", count)[-1]["body"])


def mail(desk, count):
    """What the count-th message that was begun in the browser says."""
    url = desk.browser.wait_for_page(count)
    query = urllib.parse.parse_qs(urllib.parse.urlsplit(url).query)
    expect(query.get("view") == ["cm"], f"{url} is no message")
    return {key: values[0] for key, values in query.items()}


def expect_mail(sent, emails, name, link, whose):
    expect(sent["to"].split(",") == emails, f"it goes to {sent['to']}")
    expect(sent["su"] == f"Approval: {name} v1", f"it is about {sent['su']}")
    expect(sent["body"].startswith(f"Hi {whose},\n\n{name} v1 is ready for your approval:\n{link}\n"),
           f"it says {sent['body']!r}")
    expect(sent["body"].endswith("\n\nThanks!\nRenny"), f"it ends {sent['body'][-40:]!r}")


def approval_by_mail(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        service.keep_waiting(approvers=True)
        file = ticket(service)["file"]
        heading = f"{file['title']} {file['component']}"
        name = f"{file['po']} {heading}"

        reader.press_named(heading, roles=("list item",))
        reader.find(name="Approval", roles=("heading",))
        reader.press_named("Send for approval")
        reader.find(name="Send v1 for approval", roles=("dialog",))
        reader.press_named("Open a Gmail message with the link", roles=("radio button",))
        # Return is not heard while the sheet has just come.
        wait_until("the sheet to go", lambda: reader.key("Return") or not reader.find_all(
            name="Send v1 for approval", roles=("dialog",)), pause=0.5)
        reader.find(contains="Sent v1 to Mira and Tomas for approval.")
        expect(asked(service, 1)["approvers"] == [MIRA, TOMAS], "others were asked")
        link = ticket(service)["file"]["share"]["url"]
        expect_mail(mail(desk, 1), [MIRA, TOMAS], name, link, "Mira and Tomas")

        service.approvers_answer(TICKET, "approved", by=MIRA)
        wait_until("the answer to be there", lambda: ticket(service)["approval"]["answers"])
        reader.key("ctrl+r")
        reader.find(contains="Waiting on Tomas", roles=("heading",))
        reader.press_named("Email again", roles=BUTTON)
        expect_mail(mail(desk, 2), [TOMAS], name, link, "Tomas")

        reader.press_named("Take back", roles=BUTTON)
        reader.find(contains="Took the request back.")
        expect(asked(service, 2) == {"action": "withdraw"}, "it was taken back in another way")
        reader.gone(contains="Waiting on Tomas")
        reader.find(name="Send for approval", roles=BUTTON)
        expect(not ticket(service).get("approval"), "the round goes on")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(approval_by_mail))
