"""Pages are turned faster than their pictures come: what is seen is always the page that is named,
and a note is never begun on another."""

import subprocess
import sys

from desk import Desk, expect, run, wait_until

ROW = ("list item",)
PANES = ("grouping", "panel")
PICTURES = ("image", "graphic", "icon")
MODES = ("radio button",)
TOGGLES = ("check box",)
NOTE = "Note here, p"
DIFFERENT = 0.02  # of two pictures, from 0 to 1


class Ticket:
    """The longest one of new titles."""

    def __init__(self, service):
        details = [detail for detail in service.state()["files"].values()
                   if detail["file"].get("track") == "new_title"]
        detail = max(details, key=lambda each: len(each["file"]["pages"]))
        self.file = detail["file"]
        serious = [each["page"] for each in detail["findings"] if each["severity"] == "high"]
        self.opens_on = serious[0] if serious else 0
        self.heading = f"{self.file['title']} {self.file['component']}"

    def name(self, index):
        return self.file["pages"][index]["label"]

    def captions(self, index):
        name = self.name(index)
        return [f"{self.file['supplier']} file · p{name}", f"What we sent · p{name}", f"FBC · p{name}"]

    def pictures(self, index):
        page = self.file["pages"][index]
        return ["/api/blob/" + key for key in
                [page["img"], page["refs"]["submitted"]["img"], page["refs"]["fbc"]["img"]]]


class Story:
    def __init__(self, desk):
        self.desk, self.reader, self.service = desk, desk.reader, desk.service
        self.session = desk.session
        self.reader.find(name="Up to date")
        self.ticket = Ticket(self.service)
        self.number = 0
        self.index = self.ticket.opens_on

    def hold(self, index):
        """That page's pictures do not come until `release`."""
        self.service.fail_with(*({"path": path, "times": 100000, "held": True}
                                 for path in self.ticket.pictures(index)))

    def release(self):
        self.service.fail_with()

    def turn_to(self, index):
        while self.index != index:
            self.reader.press_named("Next page" if self.index < index else "Previous page")
            self.index += 1 if self.index < index else -1
            self.reader.find(name=f"Page {self.ticket.name(self.index)}", roles=("heading",))
        self.reader.find(name=self.ticket.captions(index)[0], roles=PANES)

    def box(self, caption):
        pane = self.reader.find(name=caption, roles=PANES)
        return wait_until("the pane's place", lambda: self.reader._box(pane))

    def seen(self, box):
        """What is seen of the upper half of a pane, below its caption, as a file."""
        self.number += 1
        whole = self.session.folder / f"{self.number}.png"
        part = self.session.folder / f"{self.number}-part.png"
        self.session.picture(whole)
        x, y, width, height = box
        self.session.run("convert", str(whole), "-crop",
                         f"{width * 8 // 10}x{height * 3 // 10}+{x + width // 10}+{y + height // 10}",
                         "+repage", str(part))
        return part

    def colours(self, part):
        return int(self.session.run("convert", str(part), "-format", "%k", "info:"))

    def differ(self, one, other):
        """How much two pictures differ, from 0 to 1."""
        done = subprocess.run(["compare", "-metric", "RMSE", str(one), str(other), "null:"],
                              capture_output=True, check=False, text=True,
                              env=self.session.environment)
        return float(done.stderr.split("(")[1].rstrip(") \n"))

    def told(self, caption):
        return self.reader.find_all(name=caption, roles=PICTURES)

    def come(self, index):
        for caption in self.ticket.captions(index):
            self.reader.find(name=caption, roles=PICTURES)


    def press_on(self, box):
        x, y, width, height = box
        self.session.run("xdotool", "mousemove", "--sync", str(x + width // 2),
                         str(y + height // 3), "click", "1")


def side_by_side(story):
    reader, ticket = story.reader, story.ticket
    reader.press_named(ticket.heading, roles=ROW)
    first, late = 0, 5
    story.turn_to(first)
    story.come(first)
    boxes = [story.box(caption) for caption in ticket.captions(first)]
    before = [story.seen(box) for box in boxes]
    expect(min(story.colours(part) for part in before) > 20, "the page before is not seen")

    story.hold(late)
    story.turn_to(late)
    # The supplier's page has its own thumb to stand in, the others are paper.
    for caption, box, old in zip(ticket.captions(late), boxes, before):
        wait_until(f"the old page to go from {caption}",
                   lambda box=box, old=old: story.differ(old, story.seen(box)) > DIFFERENT)
        expect(not story.told(caption), f"{caption} is told as a picture that is not here")
    expect(story.colours(story.seen(boxes[0])) > 20, "the page's thumb does not stand in for it")
    expect(story.colours(story.seen(boxes[1])) < 12, "what we sent is not paper")
    wait_until("spinners", lambda: len(reader.find_all(name="Working")) >= 3)

    # On what is not seen no note begins.
    story.press_on(boxes[1])
    story.release()
    story.come(late)
    reader.gone(name="Working")
    expect(not reader.find_all(contains=NOTE), "a note was begun on a page that was not seen")
    story.press_on(boxes[1])
    reader.find(name=NOTE + ticket.name(late))
    reader.key("Escape")
    reader.gone(name=NOTE + ticket.name(late))

    # One that was here is seen at once.
    story.hold(first)
    story.turn_to(first)
    expect(all(story.told(caption) for caption in ticket.captions(first)), "it is not told at once")
    wait_until("the page itself", lambda: story.differ(before[1], story.seen(boxes[1])) < DIFFERENT)
    story.release()


def one_pane(story, mode, late, switch=None):
    """One pane that another page lies over or is compared with."""
    reader, ticket = story.reader, story.ticket
    story.turn_to(0)
    reader.press_named(mode, roles=MODES)
    if switch:
        reader.press_named(switch, roles=TOGGLES)
    box = story.box(ticket.captions(0)[0])
    reader.find(name=ticket.captions(0)[0], roles=PICTURES)
    before = story.seen(box)
    story.hold(late)
    story.turn_to(late)
    wait_until("the old page to go", lambda: story.differ(before, story.seen(box)) > DIFFERENT)
    expect(not any(story.told(caption) for caption in ticket.captions(late)),
           "a picture is told that is not here")
    story.release()
    reader.find(name=ticket.captions(late)[0], roles=PICTURES)
    reader.press_named("Side by side", roles=MODES)
    story.come(late)


def name_the_page(build):
    with Desk(build) as desk:
        story = Story(desk)
        side_by_side(story)
        one_pane(story, "Overlay", late=7)
        one_pane(story, "Overlay", late=9, switch="Difference")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(name_the_page))
