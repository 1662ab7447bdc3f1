"""A proof goes out for approval, comes back with changes, is revised, approved and passed on."""

import json
import sys

from chooser import ASKS, choose_pdf
from clipboard import FIELD, pasted
from desk import Desk, expect, run, wait_until

TICKET = "carto-text"
BUTTON = ("button", "push button")


def stands(service):
    approval = service.state()["files"][TICKET].get("approval")
    return approval and approval["state"]


def becomes(desk, state, title):
    """The service has it so, and so does the window, at the latest when it is asked for news."""
    wait_until(f"the round to be {state}", lambda: stands(desk.service) == state)
    desk.reader.key("ctrl+r")
    desk.reader.find(contains=title, roles=("heading",))


def asked(service, count):
    return json.loads(service.wait_for_request("POST", f"api/files/{TICKET}/approval", count)[-1]["body"])


def send_out(desk, version, line, count):
    reader, service = desk.reader, desk.service
    # All by keyboard, once the sheet is there.
    reader.find(name=f"Send v{version} for approval", roles=("dialog",))
    reader.tab_to("A line for them", FIELD)
    reader.type(line)
    reader.key("Return")
    reader.gone(name=f"Send v{version} for approval", roles=("dialog",))
    reader.find(contains=f"Sent v{version} to Mira and Tomas for approval. The Notion link is copied.")
    sent = asked(service, count)
    expect(sent["action"] == "request" and sent["note"] == line, f"it was sent as {sent}")
    expect(set(sent["approvers"]) == {"mira@tessarine.example", "tomas@tessarine.example"},
           f"it went to {sent['approvers']}")


def rows_under(reader, heads):
    return [row.name for head in heads for row in reader.rows(head)]


def round_of_approval(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        service.keep_waiting(approvers=True, checks=True)
        file = service.state()["files"][TICKET]["file"]
        heading, supplier = f"{file['title']} {file['component']}", file["supplier"]
        proofs = desk.session.folder / "proofs"
        proofs.mkdir()
        (proofs / "revised.pdf").write_bytes(service.proof(TICKET, repaired=True))

        reader.press_named(heading, roles=("list item",))
        reader.find(name="Approval", roles=("heading",))
        reader.press_named("Send for approval")
        send_out(desk, 1, "Look at p33", 1)
        link = service.state()["files"][TICKET]["file"]["share"]["embed_url"]
        expect(pasted(desk) == link, "the link for Notion is not on the clipboard")
        becomes(desk, "pending", "Waiting on Mira and Tomas")

        service.approvers_answer(TICKET, "changes", "The rule is off.", "mira@tessarine.example")
        becomes(desk, "changes", "Mira asked for changes on v1")
        reader.find(contains="The rule is off.")

        reader.press_named("Upload revision")
        reader.find(name="Upload v2", roles=("dialog",))
        choose_pdf(reader, proofs / "revised.pdf")
        reader.find(name="revised.pdf")
        reader.press_named("Choose another…")
        reader.find(contains=ASKS)
        reader.key("Escape")
        reader.gone(contains=ASKS)
        reader.find(name="revised.pdf")
        reader.press_named("Upload")
        reader.find(contains="Uploaded v2. The Mac mini is checking it against v1.")
        expect(len(service.requests("PUT", f"api/files/{TICKET}/versions")) == 1, "it went up twice")
        reader.find(contains="Checking v2 against v1…")
        service.keep_waiting(checks=False)
        becomes(desk, "revised", "v2 is up. Send it back for approval.")
        reader.gone(contains="Checking v2 against v1…")

        reader.press_named("Send v2 for approval", roles=BUTTON)
        send_out(desk, 2, "It is straight now", 2)
        becomes(desk, "pending", "Waiting on Mira and Tomas")
        service.approvers_answer(TICKET, "approved")
        becomes(desk, "approved", "Approved by Mira and Tomas")

        reader.press_named(f"Mark sent to {supplier}")
        reader.find(contains=f"Marked sent to {supplier}.")
        expect(asked(service, 3) == {"action": "sent"}, "it was marked in another way")
        becomes(desk, "sent", f"Approved and sent to {supplier}")

        reader.press_named("History", roles=("page tab",))
        heads = (f"v1 · {supplier} proof", "v2 · Revision by You")
        told = rows_under(reader, heads)
        # What is further down is read when it has been scrolled to.
        reader.tab_to("History", ("panel",))
        for _ in range(3):
            reader.key("Next")
        told += wait_until("the end of the story", lambda: [
            row for row in rows_under(reader, heads) if row not in told])
        want = ("Sent v1 to Mira", "Asked for changes on v1", "v2", "Sent v2 to Mira", "Approved v2",
                "Every approver said yes", f"Marked sent to {supplier}")
        at = 0
        for part in want:
            found = next((i for i, row in enumerate(told[at:], at) if part in row), None)
            expect(found is not None, f"{part!r} is not told, or not in its place: {told}")
            at = found + 1
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(round_of_approval))
