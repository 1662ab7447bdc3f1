"""A reviewer looks at the two people's pages, earns a milestone, and goes from there to tickets."""

import sys

from desk import Desk, Trouble, expect, run

JORVAS = "jorvas@tessarine.example"
BUTTON = ("push button", "button")
HEADING = ("heading",)
MINE, THEIRS = "Your page and stats", "Jorvas's page and stats"


def heading_of(file):
    return f"{file['title']} {file['component']}"


def files_of(service):
    return [detail["file"] for detail in service.state()["files"].values()]


def scroll_to(reader, name=None, contains=None, roles=None):
    """Down the page from its top, a screen at a time, to what is further below."""
    reader.key("Home")
    for _ in range(8):
        try:
            return reader.find(name=name, contains=contains, roles=roles, limit=2)
        except Trouble:
            reader.key("Next")
    return reader.find(name=name, contains=contains, roles=roles)


def earn(desk):
    """One more ticket reviewed is the tenth."""
    reader, service = desk.reader, desk.service
    reader.press_named(MINE, roles=BUTTON)
    reader.find(name="Renny Vale", roles=HEADING)
    reader.find(contains="In Vellix now")
    scroll_to(reader, contains="Milestones ", roles=HEADING)
    scroll_to(reader, contains="10 reviews, 9 of 10")
    reader.key("Home")
    reader.press_named("Tickets", roles=BUTTON)
    reader.gone(name="Renny Vale", roles=HEADING)

    reader.press_named("Mark reviewed", roles=BUTTON)
    service.wait_for_request("POST", "api/files/")
    reader.press_named(MINE, roles=BUTTON)
    scroll_to(reader, contains="10 reviews, Earned")
    expect(len(service.requests("GET", "api/stats")) >= 2, "the figures were not asked for anew")


def go_from_there(desk):
    reader, service = desk.reader, desk.service
    mine = [file for file in files_of(service)
            if file.get("assignee") == "renny@tessarine.example" and file["status"] != "reviewed"]
    scroll_to(reader, name="Open now", roles=HEADING)
    wanted = heading_of(mine[0])
    reader.press(scroll_to(reader, contains=f"{wanted}, ", roles=BUTTON))
    reader.gone(name="Renny Vale", roles=HEADING)
    reader.find(name=wanted, roles=HEADING)


def follow_a_mention(desk):
    reader, service = desk.reader, desk.service
    file = next(file for file in files_of(service) if file.get("pages"))
    service.colleague_acts(file_id=file["id"], text="@Renny is this the old barcode?", by=JORVAS,
                          tags=["renny@tessarine.example"])
    reader.press_named(MINE, roles=BUTTON)
    scroll_to(reader, name="Tagged in", roles=HEADING)
    reader.press(scroll_to(reader, contains="is this the old barcode?", roles=BUTTON))
    reader.gone(name="Renny Vale", roles=HEADING)
    reader.find(name=heading_of(file), roles=HEADING)


def look_at_another(desk):
    reader, service = desk.reader, desk.service
    reader.press_named(THEIRS, roles=BUTTON)
    reader.find(name="Jorvas Lind", roles=HEADING)
    expect(not reader.find_all(name="Change my photo"), "one may change the photo of another")
    reader.press_named(THEIRS, roles=BUTTON)
    reader.gone(name="Jorvas Lind", roles=HEADING)

    service.someone_comes("una@tessarine.example", "Una Hale", counted=False)
    reader.press_named("Una's page and stats", roles=BUTTON)
    reader.find(name="Adding it up…")
    service.someone_leaves("una@tessarine.example")
    reader.find(name="una@tessarine.example", roles=HEADING)
    reader.key("Escape")
    reader.gone(name="una@tessarine.example", roles=HEADING)


def look(build):
    with Desk(build, reviewer="renny") as desk:
        earn(desk)
        go_from_there(desk)
        follow_a_mention(desk)
        look_at_another(desk)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(look))
