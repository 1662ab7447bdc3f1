"""A page is compared in every way, a place on it is drawn, and a finding's spot is enlarged."""

import sys
import time

from desk import Desk, expect, run, wait_until

TOGGLES = ("check box",)
MODES = ("radio button",)
BOXES = ("button", "push button", "toggle button", "check box")


def page_with_findings(state):
    """The ticket that is opened first on a page with a finding to select, and that page's name."""
    for detail in state["files"].values():
        file = detail["file"]
        grave = [finding for finding in detail["findings"]
                 if finding["state"] == "open" and finding["severity"] == "high"]
        if file["track"] == "new_title" and file["status"] == "new" and grave:
            return file, grave[0], file["pages"][grave[0]["page"]]["label"]
    raise AssertionError("the demo has no such page")


def panes(reader, name):
    """The captions of the panes on the stage, from the left."""
    return [node.name for node in reader.find_all(contains=f" · p{name}", roles=("grouping", "panel"))]


def toggle(reader, name):
    reader.press_named(name, roles=TOGGLES)


def hide_to_the_last(reader, supplier, name):
    ours, third = f"What we sent · p{name}", f"FBC · p{name}"
    wait_until("three panes", lambda: len(panes(reader, name)) == 3)
    toggle(reader, "FBC")
    wait_until("the third pane to go", lambda: third not in panes(reader, name))
    toggle(reader, supplier)
    wait_until("ours alone", lambda: panes(reader, name) == [ours])
    toggle(reader, "What we sent")
    toggle(reader, "FBC")
    wait_until("the third pane to come", lambda: panes(reader, name) == [ours, third])
    toggle(reader, supplier)
    wait_until("three panes again", lambda: len(panes(reader, name)) == 3)


def blink(reader, name):
    reader.press_named("Blink", roles=MODES)
    wait_until("one pane at a time", lambda: len(panes(reader, name)) == 1)
    begun, seen = time.monotonic(), []
    while len(seen) < 5:
        shown = panes(reader, name)
        if len(shown) == 1 and shown != seen[-1:]:
            seen += shown
        expect(time.monotonic() - begun < 60, f"it blinked too little: {seen}")
    took = time.monotonic() - begun
    # However slow the machine: four swaps never take less than three whole pauses between them.
    expect(took >= 3 * 0.7, f"four swaps took {took:.2f} s")
    expect(seen[3] == seen[0] and seen[4] == seen[1], f"not in turn: {seen}")
    reader.press_named("Side by side", roles=MODES)
    wait_until("all panes", lambda: len(panes(reader, name)) == 3)
    calm = time.monotonic() + 2
    while time.monotonic() < calm:
        expect(len(panes(reader, name)) == 3, "it blinks on")


def overlay(reader, supplier, name):
    reader.press_named("Overlay", roles=MODES)
    wait_until("the first pane", lambda: panes(reader, name) == [f"{supplier} file · p{name}"])
    reader.find(name="How much of ours shows through", roles=("slider",))
    reader.press_named("Difference", roles=TOGGLES)
    wait_until("the difference", lambda: reader.has(
        reader.find(name="Difference", roles=TOGGLES), 4))
    # The arrow keys choose as well.
    reader.tab_to("Overlay", MODES)
    reader.key("Left")
    wait_until("all panes", lambda: len(panes(reader, name)) == 3)
    reader.gone(name="Difference")


def draw(reader, session, supplier, name):
    page = reader.find(name=f"{supplier} file · p{name}", roles=("image", "graphic", "icon"))
    x, y, width, height = wait_until("the page's place", lambda: reader._box(page))
    left, top = x + width * 3 // 4, y + height * 8 // 10
    session.run("xdotool", "mousemove", "--sync", str(left), str(top), "mousedown", "1",
                "mousemove", "--sync", str(left + 12), str(top + 8),
                "mousemove", "--sync", str(left + 30), str(top + 24), "mouseup", "1")
    reader.find(name=f"Note on this area, p{name}")
    session.run("xdotool", "mousemove", "--sync", str(left), str(top), "click", "1")
    reader.find(name=f"Note here, p{name}")
    reader.gone(name=f"Note on this area, p{name}")
    reader.key("Escape")
    reader.gone(name=f"Note here, p{name}")


def enlarge(reader, finding, name):
    box = reader.find(contains=f"{finding['title']}, Fix, Open, page {name}", roles=BOXES)
    reader.click(box)
    reader.find(name="Close (Esc)")
    reader.find(name=finding["title"], roles=("grouping", "panel"))
    reader.key("Escape")
    reader.gone(name="Close (Esc)")
    # As a screen reader presses it.
    reader.press(reader.find(contains=f"{finding['title']}, Fix, Open, page {name}", roles=BOXES))
    reader.press_named("Close (Esc)")
    reader.gone(name="Close (Esc)")


def zoom(reader, session, supplier, name):
    page = reader.find(name=f"{supplier} file · p{name}", roles=("image", "graphic", "icon"))
    x, y, width, height = wait_until("the page's place", lambda: reader._box(page))
    session.run("xdotool", "mousemove", "--sync", str(x + width // 2), str(y + height // 2),
                "keydown", "ctrl", "click", "4", "keyup", "ctrl")
    reader.find(name="125%")
    reader.key("ctrl+equal")
    reader.find(name="150%")
    wait_until("a larger page", lambda: reader._box(page)[2] > width * 1.4)
    reader.press_named("150%")
    reader.find(name="100%")


def compare(build):
    with Desk(build, reviewer="renny") as desk:
        reader, session = desk.reader, desk.session
        file, finding, name = page_with_findings(desk.service.state())
        supplier = file["supplier"]
        reader.press_named(f"{file['title']} {file['component']}", roles=("list item",))
        reader.find(name=f"{supplier} file · p{name}", roles=("grouping", "panel"))
        hide_to_the_last(reader, supplier, name)
        overlay(reader, supplier, name)
        blink(reader, name)
        draw(reader, session, supplier, name)
        enlarge(reader, finding, name)
        zoom(reader, session, supplier, name)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(compare))
