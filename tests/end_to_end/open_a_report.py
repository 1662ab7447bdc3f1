"""A report is opened from the downloads: twice without a second copy, a changed one beside it."""

import sys
from pathlib import Path
from urllib.parse import unquote

from desk import Desk, expect, run, wait_until
from reader import STATE_ENABLED

BUTTON = ("push button", "button")
OPEN = "Open the report"


def opened(desk, count):
    """The file that was handed over the count-th time."""
    page = desk.browser.wait_for_page(count)
    expect(page.startswith("file://"), f"{page} was opened")
    return Path(unquote(page.removeprefix("file://")))


def press_open(reader):
    """Once the one before is at hand."""
    reader.press(wait_until("the button to be there again", lambda: [
        node for node in reader.find_all(name=OPEN, roles=BUTTON)
        if reader.has(node, STATE_ENABLED)])[0])


def make(reader, button):
    reader.press_named(button, roles=BUTTON)
    reader.find(contains="Ready in about")
    reader.find(name="New report", roles=BUTTON, limit=60)
    reader.press_named("What Claude did on the Mac mini", roles=BUTTON)
    reader.find(contains="Done, just now", roles=("list item",))
    reader.key("Escape")
    reader.gone(name="Reports", roles=("heading",))
    reader.find(contains="Report by You · ")


def open_a_report(build):
    with Desk(build, service_arguments=("--no-colleague", "--pace", "2")) as desk:
        reader, service = desk.reader, desk.service
        downloads = Path(desk.session.environment["HOME"]) / "Downloads"
        downloads.mkdir()
        first = wait_until("a ticket", lambda: reader.rows("Tickets")[:1])[0].name
        reader.press_named(first, roles=("list item",))
        make(reader, "Make report")

        press_open(reader)
        file = opened(desk, 1)
        expect(file.parent == downloads and file.name == f"{first} report.pdf", f"it is {file}")
        pdf = file.read_bytes()
        expect(pdf.startswith(b"%PDF") and b"%%EOF" in pdf[-1024:], "it is no PDF")

        press_open(reader)
        expect(opened(desk, 2) == file, "the same report went to another file")
        expect(list(downloads.iterdir()) == [file], f"{list(downloads.iterdir())} lies there")

        # A decision later the report is another one.
        reader.press_named("Fine")
        service.wait_for_request("POST", "api/findings/")
        make(reader, "New report")
        press_open(reader)
        second = opened(desk, 3)
        expect(second.name == f"{first} report 2.pdf", f"the changed one is {second}")
        expect(file.read_bytes() == pdf, "the first one was written over")
        expect(second.read_bytes() != pdf, "the two are the same")

        service.fail_with({"path": "/api/reports/", "status": 500})
        press_open(reader)
        reader.find("A fault was asked for.")
        service.fail_with({"path": "/api/reports/", "cut_at": 1_000})
        press_open(reader)
        reader.find("This Mac is offline. Vellix will catch up when it's back.")
        expect(sorted(downloads.iterdir()) == sorted([file, second]), "a broken one was kept")
        expect(len(desk.browser.pages()) == 3, "a broken one was opened")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(open_a_report))
