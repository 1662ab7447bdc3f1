"""A ticket's link is turned on, allowed more, copied, renewed and turned off; key approvers come and go."""

import json
import sys

from clipboard import FIELD, pasted
from desk import Desk, expect, run, wait_until

TICKET = "carto-text"
BUTTON = ("button", "push button")


def told(service, start, count):
    """What was sent the count-th time, once it has come."""
    return json.loads(service.wait_for_request("POST", start, count)[count - 1]["body"])


def link_of(service):
    return service.state()["files"][TICKET]["file"]["share"]


def away(desk):
    desk.reader.key("Escape")
    desk.reader.gone(name="Share link", roles=("dialog",))


def shared(desk):
    reader, service = desk.reader, desk.service
    start = f"api/files/{TICKET}/share"
    reader.press_named("Share", roles=BUTTON)
    reader.find(name="Share link", roles=("dialog",))
    expect(not reader.find_all(name="Copy link"), "there was a link to copy before there was one")

    reader.press_named("Share link", roles=("check box",))
    reader.find(contains="The link is on. Anyone at Tessarine with it can view.")
    expect(told(service, start, 1) == {"enabled": True}, "it was turned on in another way")
    reader.find(name="Copy link")
    away(desk)
    expect(pasted(desk) == link_of(service)["url"], "the new link is not on the clipboard")

    reader.press_named("Shared", roles=BUTTON)
    reader.press_named("Can comment", roles=("radio button",))
    reader.find(contains="Anyone with the link can comment now.")
    expect(told(service, start, 2) == {"access": "comment"}, "its level was sent in another way")
    reader.find(contains="can leave notes of their own.")

    reader.press_named("Copy for Notion")
    reader.find(contains="Copied for Notion. Paste it in the task and pick Embed.")
    away(desk)
    expect(pasted(desk) == link_of(service)["embed_url"], "the embed link is not on the clipboard")

    old = link_of(service)["url"]
    reader.press_named("Shared", roles=BUTTON)
    reader.press_named("Copy link")
    away(desk)
    expect(pasted(desk) == old, "the link is not on the clipboard")

    reader.press_named("Shared", roles=BUTTON)
    reader.press_named("Make a new link")
    reader.find(name="The old link stops working.")
    expect(len(service.requests("POST", start)) == 2, "the first press renewed it already")
    reader.press_named("Make a new link?")
    reader.find(contains="Made a new link. The old one stopped working.")
    expect(told(service, start, 3) == {"reset": True}, "it was renewed in another way")
    new = link_of(service)["url"]
    expect(new != old, "the service has the old link")

    reader.press_named("Open in browser")
    wait_until("the page to open", lambda: desk.browser.pages()[-1:] == [new])
    reader.press_named("Share link", roles=("check box",))
    reader.find(contains="The link is off.")
    expect(told(service, start, 4) == {"enabled": False, "access": "comment"},
           "it was turned off in another way")
    reader.gone(name="Copy link")
    away(desk)
    expect(pasted(desk) == new, "the renewed link is not on the clipboard")
    reader.find(name="Share", roles=BUTTON)


def approvers(desk):
    """In the settings, and in the sheet on the way."""
    reader, service = desk.reader, desk.service
    reader.key("ctrl+comma")
    reader.press_named("Remove Mira Sol")
    reader.find(contains="Saved the approvers.")
    expect(told(service, "api/approvers", 1)
           == {"approvers": [{"email": "tomas@tessarine.example", "name": "Tomas Reed"}]},
           "another list was saved")
    reader.gone(name="Remove Mira Sol")
    reader.tab_to("Address", FIELD)
    reader.type("Una@Tessarine.example")
    reader.key("Tab")
    reader.type("Una Hale")
    reader.key("Return")
    una = {"email": "una@tessarine.example", "name": "Una Hale"}
    expect(told(service, "api/approvers", 2)["approvers"][-1:] == [una], "nobody was added")
    reader.find(name="Remove Una Hale")
    reader.key("Escape")
    reader.gone(name="Key approvers")

    reader.press_named("Send for approval")
    reader.find(name="Send v1 for approval", roles=("dialog",))
    expect(reader.find_all(name="Una Hale", roles=("check box",)), "the new one is not offered")
    reader.type("bo@tessarine.example")
    reader.key("Tab")
    reader.type("Bo Lind")
    reader.key("Return")
    saved = told(service, "api/approvers", 3)["approvers"]
    expect([entry["email"].split("@")[0] for entry in saved] == ["tomas", "una", "bo"],
           f"it was saved as {saved}")
    reader.find(name="Bo Lind", roles=("check box",))
    reader.key("Escape")
    reader.gone(name="Send v1 for approval", roles=("dialog",))
    expect(not service.requests("POST", f"api/files/{TICKET}/approval"), "it was sent out")


def share(build):
    with Desk(build, reviewer="renny") as desk:
        file = desk.service.state()["files"][TICKET]["file"]
        desk.reader.press_named(f"{file['title']} {file['component']}", roles=("list item",))
        desk.reader.find(name="Approval", roles=("heading",))
        shared(desk)
        approvers(desk)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(share))
