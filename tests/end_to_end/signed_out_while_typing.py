"""A session ends in mid-word: whoever types on opens no sign-in page, and still signs in by key."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_FOCUSED

BUTTON = ("push button", "button")
TEXT = ("text", "entry")
SIGN_IN = "Sign in with Google"
WAITING = "Waiting for your browser"
NOTE = "Write a note for the report"
SENTENCE = "the folio is a line too low "


def focused(reader, name, roles):
    return any(reader.has(node, STATE_FOCUSED) for node in reader.find_all(name=name, roles=roles))


def write_into_the_end(desk, pause):
    """Types on steadily, through the end of the session and long after it."""
    reader = desk.reader
    reader.find("Real issue", roles=BUTTON)
    reader.tab_to(NOTE, roles=TEXT)
    reader.type(SENTENCE, pause)
    pages = desk.browser.pages()
    desk.service.fail_with({"path": "/api/state", "times": 100000, "status": 401, "delay_ms": 700})
    reader.key("ctrl+r")
    for _ in range(3):
        reader.type(SENTENCE, pause)
    reader.type("\n" + SENTENCE + "\n", pause)
    reader.find(SIGN_IN, roles=BUTTON)
    expect(desk.browser.pages() == pages, f"it sent the browser to {desk.browser.pages()}")
    expect(not reader.find_all(WAITING), "a sign-in waits")


def come_in(desk, page, *keys):
    """The button is at hand once the hands rest."""
    reader = desk.reader
    wait_until("the keyboard at the button", lambda: focused(reader, SIGN_IN, BUTTON))
    reader.key(*keys)
    link = desk.browser.link_for(desk.browser.wait_for_page(page), "renny")
    desk.service.fail_with()
    desk.second_start(link)
    reader.find(name="Only mine")


def expect_nothing_kept(desk):
    """What was being written ended with its session."""
    desk.reader.find("Real issue", roles=BUTTON)
    desk.reader.tab_to(NOTE, roles=TEXT)
    field = desk.reader.find(NOTE, roles=TEXT)
    expect(desk.reader.text(field) == "", f"it still says {desk.reader.text(field)!r}")


def type_on(build):
    with Desk(build) as desk:
        desk.reader.find(name="Only mine")
        write_into_the_end(desk, 40)
        come_in(desk, 1, "Return")
        expect_nothing_kept(desk)
        write_into_the_end(desk, 120)
        come_in(desk, 2, "Tab", "space")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(type_on))
