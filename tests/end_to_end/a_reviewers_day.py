"""A reviewer's day: the ticket due first is decided, noted, moved, handed on and back, and marked
reviewed. After each step the service is asked what it holds."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_FOCUSED

RENNY, JORVAS = "renny@tessarine.example", "jorvas@tessarine.example"
BUTTON = ("push button", "button")
TEXT = ("text", "entry")
ROW = ("list item",)
ENTRY = ("menu item", "check menu item")
PASSED = ("expected", "pass")


class Day:
    def __init__(self, desk):
        self.desk, self.reader, self.service = desk, desk.reader, desk.service
        due = sorted((detail["file"] for detail in self.service.state()["files"].values()
                      if detail["file"].get("track", "new_title") == "new_title"
                      and detail["file"]["status"] != "reviewed"), key=lambda file: file["due"])
        self.first, self.next = due[0], due[1]

    @staticmethod
    def heading(file):
        return f"{file['title']} {file['component']}"

    def detail(self):
        return self.service.state()["files"][self.first["id"]]

    def file(self):
        return self.detail()["file"]

    def page_name(self, index):
        return self.first["pages"][index]["label"]

    def finding(self, wanted):
        return next(each for each in self.detail()["findings"] if each["id"] == wanted)

    def notes(self):
        return self.detail()["comments"]

    def waiting(self):
        """The findings that nobody has decided, worst first within their page."""
        return [each for each in self.detail()["findings"]
                if each["state"] == "open" and each["kind"] not in PASSED]

    def go_to(self, index):
        names = [f"Page {page['label']}" for page in self.first["pages"]]
        here = names.index(wait_until("a page", lambda: [
            node.name for node in self.reader.find_all(roles=("heading",))
            if node.name in names])[0])
        while here != index:
            self.reader.press_named("Next page" if here < index else "Previous page")
            here += 1 if here < index else -1
            self.reader.find(names[here], roles=("heading",))

    def press_beside(self, text, names):
        """Presses the button of one of these names that belongs to the note of this text."""
        def button():
            nodes = self.reader.everything()
            at = next((index for index, node in enumerate(nodes) if node.name == text), 0)
            return next((node for node in reversed(nodes[:at])
                         if node.name in names and node.role in BUTTON), None)
        self.reader.press(wait_until(f"{names[0]} beside {text}", button))

    def wait_for_keyboard(self, label):
        wait_until(f"the keyboard in {label}", lambda: any(
            self.reader.has(node, STATE_FOCUSED)
            for node in self.reader.find_all(label, roles=TEXT)))

    def type_into(self, label, text):
        self.reader.click(self.reader.find(label, roles=TEXT))
        self.reader.type(text)


def decide(day):
    """Every finding of the ticket, and one of them again."""
    waiting = day.waiting()
    expect(len(waiting) > 3, "the demo leaves little to decide")
    for page in sorted({each["page"] for each in waiting}):
        day.go_to(page)
        here = [each for each in waiting if each["page"] == page]
        for count in range(len(here)):
            button, state = (("Real issue", "issue"), ("Fine", "fine"))[count % 2]
            left = len(day.waiting())
            day.reader.press_named(button, roles=BUTTON)
            wait_until("a decision", lambda left=left: len(day.waiting()) == left - 1)
            day.reader.find("Marked a real issue." if state == "issue" else "Marked fine.")
        states = {day.finding(each["id"])["state"] for each in here}
        expect(states == ({"issue"} if len(here) == 1 else {"issue", "fine"}),
               f"page {page} holds {states}")
        expect(all(day.finding(each["id"])["state_by"] == RENNY for each in here), "by somebody else")
    last = [each for each in waiting if each["page"] == waiting[-1]["page"]][-1]["id"]
    before = {each["id"] for each in day.waiting()}
    day.reader.press_named("Undo", roles=BUTTON)
    day.reader.find("Reopened.")
    wait_until("one that waits again", lambda: {each["id"] for each in day.waiting()} - before)
    expect(day.finding(last)["state"] == "open", "another one was opened")


def note_on_the_page(day, page):
    known = {note["id"] for note in day.notes()}
    day.go_to(page)
    day.type_into("Write a note for the report", "The folio jumps here")
    day.reader.key("ctrl+Return")
    day.reader.find("Note added.")
    note = next(note for note in day.notes() if note["id"] not in known)
    expect(note["text"] == "The folio jumps here" and note["page"] == page and note["by"] == RENNY,
           f"the note is {note}")
    expect("x" not in note and "finding_id" not in note, f"it has a place: {note}")
    day.reader.find("The folio jumps here")
    return note["id"]


def note_in_a_box(day, page):
    known = {note["id"] for note in day.notes()}
    name = day.page_name(page)
    picture = day.reader.find(f"{day.first['supplier']} file · p{name}",
                              roles=("image", "graphic", "icon"))
    x, y, width, height = wait_until("the page's place", lambda: day.reader._box(picture))
    left, top = x + width // 4, y + height // 10
    day.desk.session.run("xdotool", "mousemove", "--sync", str(left), str(top), "mousedown", "1",
                         "mousemove", "--sync", str(left + 20), str(top + 10),
                         "mousemove", "--sync", str(left + 60), str(top + 40), "mouseup", "1")
    day.reader.find(f"Note on this area, p{name}")
    day.wait_for_keyboard("What needs fixing here?")
    day.reader.type("Let it run on")
    day.reader.key("ctrl+Return")
    day.reader.find("Note added.")
    day.reader.gone("What needs fixing here?")
    note = next(note for note in day.notes() if note["id"] not in known)
    expect(note["text"] == "Let it run on" and note["side"] == "supplier", f"the note is {note}")
    expect(abs(note["x"] - 0.25) < 0.01 and abs(note["w"] - 60 / width) < 0.01 and
           abs(note["h"] - 40 / height) < 0.01, f"it lies at {note}")


def note_on_a_finding(day, page):
    known = {note["id"] for note in day.notes()}
    day.go_to(page)
    day.reader.press_named("Add a note to this", roles=BUTTON)
    day.wait_for_keyboard("What needs fixing here?")
    day.reader.type("Jorvas, have a look")
    # The panel's field has its own for as long as it folds.
    wait_until("the panel's field to fold",
               lambda: len(day.reader.find_all("Tag people", roles=BUTTON)) == 1)
    day.reader.press_named("Tag people", roles=BUTTON)
    day.reader.press(day.reader.find("Jorvas", roles=ENTRY))
    day.reader.key("Escape")
    day.reader.gone("Jorvas", roles=ENTRY)
    day.reader.find("Jorvas Lind")
    day.reader.press([each for each in day.reader.find_all("Post", roles=BUTTON)][-1])
    day.reader.find("Note added.")
    note = next(note for note in day.notes() if note["id"] not in known)
    finding = day.finding(note["finding_id"])
    expect(note["tags"] == [JORVAS] and finding["page"] == page, f"the note is {note}")
    expect([note["x"], note["y"], note["w"], note["h"]] == finding["box"], f"it lies at {note}")


def change_the_note(day, page, note):
    def held():
        return next((each for each in day.notes() if each["id"] == note), None)

    written = "The folio jumps here by two"
    day.go_to(page)
    day.reader.find("The folio jumps here")
    day.press_beside("The folio jumps here", ("Edit or delete",))
    day.reader.press(day.reader.find("Edit", roles=ENTRY))
    day.wait_for_keyboard("Note")
    day.reader.key("End")
    day.reader.type(" by two")
    day.reader.key("ctrl+Return")
    day.reader.find("Saved.")
    expect(held()["text"] == written, f"it is held as {held()}")

    day.press_beside(written, ("Resolve",))
    day.reader.find("Resolved.")
    expect(held()["resolved"] == 1 and held()["resolved_by"] == RENNY, f"it is held as {held()}")
    day.press_beside(written, ("Resolved by You. Reopen it.",))
    day.reader.find("Reopened.")
    expect(not held().get("resolved"), f"it is held as {held()}")

    day.press_beside(written, ("Edit or delete",))
    day.reader.press(day.reader.find("Delete…", roles=ENTRY))
    expect(held() is not None, "it is gone at the first press")
    day.reader.press(day.reader.find("Delete this note?", roles=ENTRY))
    day.reader.find("Note deleted.")
    expect(held() is None, f"it is still held as {held()}")
    day.reader.gone(written)


def due_button(day):
    nodes = day.reader.find_all(roles=BUTTON)
    return next((node for node in nodes
                 if day.reader.description(node) == "When the review is due"), None)


def move_the_due_date(day):
    due = day.file()["due"]
    day.reader.press(wait_until("the due button", lambda: due_button(day)))
    day.reader.press_named("Urgent", roles=("check box", "toggle button", "switch"))
    day.reader.find("Marked urgent. Due today.")
    expect(day.file()["urgent"] is True and day.file()["due_by"] == RENNY, "it is not urgent")
    wait_until("the chip", lambda: any("Due today" in node.name or "Due in" in node.name
                                       for node in [due_button(day)] if node))
    day.reader.press(wait_until("the due button", lambda: due_button(day)))
    day.reader.press_named("Back to 48 hours", roles=BUTTON + ("link",))
    day.reader.find("Due 48 hours after it came in.")
    file = day.file()
    expect(not file.get("urgent"), "it is urgent still")
    expect(file["due"] == min(file["received"] + 48 * 3_600_000, file.get("deadline", 1e18)),
           f"it is due {file['due']}, and was {due}")


def hand_on(day):
    day.reader.press(wait_until("the reviewer", lambda: next(
        (node for node in day.reader.find_all("You", roles=BUTTON)
         if day.reader.description(node) == "Who reviews this"), None)))
    day.reader.press(day.reader.find("Jorvas Lind", roles=ROW + BUTTON + ENTRY + ("radio button",)))
    day.reader.find("Assigned to Jorvas.")
    expect(day.file()["assignee"] == JORVAS, f"it is {day.file()['assignee']}'s")
    day.reader.press_named("Undo", roles=BUTTON)
    day.reader.find("Assigned to Renny.")
    expect(day.file()["assignee"] == RENNY, f"it is {day.file()['assignee']}'s")


def carried_on(day):
    """The button that undoes, once the next ticket is on show."""
    nodes = day.reader.everything()
    told = any(node.name == "Marked reviewed." for node in nodes)
    there = any(node.name == Day.heading(day.next) and node.role == "heading" for node in nodes)
    held = day.file()["status"] == "reviewed" and day.file()["status_by"] == RENNY
    return told and there and held and next(
        (node for node in nodes if node.name == "Undo" and node.role in BUTTON), None)


def end_the_review(day):
    status = day.file()["status"]
    day.reader.press_named("Mark reviewed", roles=BUTTON)
    # The way back is offered for a few seconds only.
    day.reader.press(wait_until("the next ticket, and the way back", lambda: carried_on(day)))
    expect([(entry["path"], entry["body"]) for entry in
            day.service.requests("POST", f"api/files/{day.first['id']}/status")][0][1] ==
           '{"status":"reviewed"}', "it was not sent as reviewed")
    day.reader.find(Day.heading(day.first), roles=("heading",))
    day.reader.find("Moved to New.")
    expect(day.file()["status"] == status, f"it is {day.file()['status']}")
    day.reader.find("Mark reviewed", roles=BUTTON)


def follow_what_was_done(day):
    day.reader.key("ctrl+y")
    day.reader.find("Activity", roles=("heading",))
    day.reader.find(contains="assigned to Renny")
    day.reader.key("Escape")
    day.reader.gone("Activity", roles=("heading",))


def spend_the_day(build):
    with Desk(build, reviewer="renny") as desk:
        day = Day(desk)
        desk.reader.press_named(Day.heading(day.first), roles=ROW)
        desk.reader.find(Day.heading(day.first), roles=("heading",))
        page = day.waiting()[0]["page"]
        decide(day)
        note = note_on_the_page(day, page)
        note_in_a_box(day, page)
        note_on_a_finding(day, day.waiting()[0]["page"])
        change_the_note(day, page, note)
        move_the_due_date(day)
        hand_on(day)
        end_the_review(day)
        follow_what_was_done(day)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(spend_the_day))
