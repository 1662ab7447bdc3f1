"""A reviewer works by ear: every control has a name and a role, says whether it can be pressed, is
chosen or open, and what goes well, ill or to its end is spoken once."""

import sys

from desk import Desk, expect, run, wait_until
from hearing import Hearing
from reader import (STATE_CHECKED, STATE_COLLAPSED, STATE_EXPANDED, STATE_FOCUSABLE, STATE_SELECTED,
                    STATE_SENSITIVE)

BUTTON = ("push button", "button")
ENTRY = ("menu item", "check menu item")
RADIO = ("radio button",)
ROW = ("list item",)
TEXT = ("text", "entry")
NO_ROLE = ("", "unknown", "invalid", "filler", "redundant object")
DONE = ("press", "click", "toggle", "increase", "decrease")
NOTE = "Write a note for the report"


def walk(reader, screen):
    """What can be focused or worked has a name and says what it is."""
    found = 0
    for node, actions in reader.with_actions():
        if not (reader.has(node, STATE_FOCUSABLE) or any(each in DONE for each in actions)):
            continue
        if node.role == "separator" and not reader.has(node, STATE_FOCUSABLE):
            continue
        found += 1
        expect(node.name.strip(), f"on {screen}, a {node.role} has no name: {node}")
        expect(node.role not in NO_ROLE, f'on {screen}, "{node.name}" is a {node.role}')
    expect(found, f"on {screen} there is nothing to do")


def has(reader, state, name, roles=BUTTON):
    return reader.has(reader.find(name, roles=roles), state)


def come_in(desk):
    reader = desk.reader
    reader.find("For Renny and Jorvas")
    walk(reader, "the sign-in screen")
    reader.press_named("Sign in with Google", roles=BUTTON)
    page = desk.browser.wait_for_page(1)
    reader.find("Waiting for your browser")
    walk(reader, "the sign-in screen as it waits")
    wait_until("the button to take no presses",
               lambda: not has(reader, STATE_SENSITIVE, "Opening Google…"))
    desk.second_start(desk.browser.link_for(page, "renny"))
    reader.find("Only mine")
    reader.find("Real issue", roles=BUTTON)


def open_and_close(reader, name, inside, screen, roles=BUTTON):
    """What opens says so; what it opens is walked through."""
    expect(has(reader, STATE_COLLAPSED, name, roles), f'"{name}" does not say that it is closed')
    reader.press(reader.find(name, roles=roles))
    reader.find(inside)
    walk(reader, screen)
    expect(has(reader, STATE_EXPANDED, name, roles), f'"{name}" does not say that it is open')
    reader.key("Escape")
    wait_until(f'"{name}" to say that it is closed',
               lambda: has(reader, STATE_COLLAPSED, name, roles))


def look_around(desk):
    reader = desk.reader
    walk(reader, "the board and a page")
    open_and_close(reader, "Overdue 2 hr", "Review due", "the due date")
    open_and_close(reader, "You", "Usually reprints", "the reviewers")
    open_and_close(reader, "Activity: who did what", "Activity", "the activity")
    open_and_close(reader, "Account", "Sign out", "the account")
    open_and_close(reader, "Review", "Make report", "a menu", ENTRY)
    reader.key("ctrl+comma")
    reader.find("Appearance")
    walk(reader, "the settings")
    expect(has(reader, STATE_CHECKED, "Show the notes panel", ("check box",)), "a switch is off")
    reader.key("Escape")
    reader.gone("Appearance")


def choose(reader, hearing):
    """What is chosen says so, and what is no longer."""
    expect(has(reader, STATE_CHECKED, "Side by side", RADIO), "the view on show is not chosen")
    overlay = reader.find("Overlay", roles=RADIO)
    reader.press(overlay)
    wait_until("the overlay to be chosen", lambda: has(reader, STATE_CHECKED, "Overlay", RADIO))
    wait_until("it to be told", lambda: hearing.changes(overlay, "checked") == [1])
    expect(not has(reader, STATE_CHECKED, "Side by side", RADIO), "both views are chosen")
    walk(reader, "the overlay")
    reader.press_named("Side by side", roles=RADIO)
    expect(has(reader, STATE_SELECTED, "The Salt Roads Text", ROW), "no ticket is selected")
    expect(not has(reader, STATE_SELECTED, "Winter Bread Text", ROW), "two tickets are")
    expect(has(reader, STATE_COLLAPSED, "Reviewed"), "the group does not say that it is folded")
    reader.press_named("Reviewed", roles=BUTTON)
    wait_until("the group to unfold", lambda: has(reader, STATE_EXPANDED, "Reviewed"))
    reader.press_named("Reviewed", roles=BUTTON)


def wait_for_the_service(desk, hearing):
    """What cannot be pressed for now says so, and when it can again."""
    reader = desk.reader
    expect(not has(reader, STATE_SENSITIVE, "Zoom out (Ctrl+-)"), "it says that it can be made smaller")
    zoom = reader.find("Zoom out (Ctrl+-)", roles=BUTTON)
    reader.key("ctrl+equal")
    wait_until("it to be told", lambda: hearing.changes(zoom, "sensitive") == [1])
    reader.key("ctrl+0")
    wait_until("it to be told again", lambda: hearing.changes(zoom, "sensitive") == [1, 0])
    desk.service.fail_with({"method": "POST", "path": "/api/files", "delay_ms": 1500})
    reader.press_named("You", roles=BUTTON)
    reader.press_named("Jorvas Lind", roles=RADIO)
    button = reader.find("You", roles=BUTTON)
    wait_until("the button to say that it waits", lambda: hearing.changes(button, "enabled") == [0])
    reader.find("Jorvas", roles=BUTTON)
    wait_until("the button to say that it is at hand",
               lambda: hearing.changes(button, "enabled") == [0, 1])
    expect(has(reader, STATE_SENSITIVE, "Jorvas"), "it is not")
    wait_until("the outcome", lambda: hearing.spoken() == ["Assigned to Jorvas."])


def be_refused(desk, hearing):
    before = len(hearing.spoken())
    desk.service.fail_with({"method": "POST", "path": "/api/files", "status": 409, "times": 100,
                            "delay_ms": 300, "body": '{"error": "Somebody else was quicker."}'})
    for count in (1, 2):
        desk.reader.press_named("Jorvas", roles=BUTTON)
        desk.reader.press_named("Renny Vale (you)", roles=RADIO)
        wait_until("the refusal", lambda count=count: len(hearing.spoken()) == before + count)
    expect(hearing.spoken()[before:] == ["Somebody else was quicker."] * 2,
           f"heard {hearing.spoken()[before:]}")
    desk.service.fail_with()


def write(reader):
    """The fields and menus of a note."""
    reader.tab_to(NOTE, roles=TEXT)
    walk(reader, "the notes")
    open_and_close(reader, "Tag people", "Jorvas Lind", "who can be tagged")
    open_and_close(reader, "Edit or delete", "Delete…", "what can be done with a note")


def go(desk, hearing):
    reader = desk.reader
    before = len(hearing.spoken())
    reader.press_named("Account", roles=BUTTON)
    reader.press_named("Sign out", roles=ENTRY)
    wait_until("the button to be told", lambda: hearing.focused()[-1:] == ["Sign in with Google"])
    expect(hearing.spoken()[before:] == [], f"heard {hearing.spoken()[before:]}")
    walk(reader, "the sign-in screen at the end")


def work(build):
    with Desk(build, reviewer=None) as desk:
        come_in(desk)
        hearing = Hearing(desk.reader)
        look_around(desk)
        choose(desk.reader, hearing)
        wait_for_the_service(desk, hearing)
        be_refused(desk, hearing)
        write(desk.reader)
        go(desk, hearing)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(work))
