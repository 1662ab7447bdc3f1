"""Toasts by ear and by eye: each is spoken once, also one that takes another's place or says the same
again, and is shown whole; the trouble of a poll and the end of a session are spoken once as well."""

import sys

from desk import Desk, expect, run, wait_until
from hearing import Hearing

BUTTON = ("push button", "button")
TOAST = ("alert message",)
CHOICES = {"Real issue": "Marked a real issue.", "Fine": "Marked fine."}
SIGNED_OUT = "You're signed out. Sign in again."
SLOW = {"path": "/api/", "times": 100000, "delay_ms": 400}


def speaks(hearing, text, deed):
    """That the deed has this spoken, and nothing else before that or with it."""
    before = len(hearing.spoken())
    deed()
    wait_until(f'"{text}" to be spoken', lambda: hearing.spoken()[before:])
    expect(hearing.spoken()[before:] == [text], f"heard {hearing.spoken()[before:]}")


def decide(desk, hearing):
    """Faster than a toast goes: each takes the last one's place, and the way back is one as well."""
    for choice in ("Real issue", "Fine"):
        speaks(hearing, CHOICES[choice],
               lambda choice=choice: desk.reader.press_named(choice, roles=BUTTON))
        shown = [node.name for node in desk.reader.find_all(roles=TOAST)]
        expect(shown == [CHOICES[choice]], f"{shown} are on show")
    speaks(hearing, "Reopened.", lambda: desk.reader.key("ctrl+z"))


def refresh(desk, hearing):
    for _ in range(2):
        speaks(hearing, "Up to date.", lambda: desk.reader.key("ctrl+r"))


def lose_the_service(desk, hearing):
    desk.service.fail_with({"path": "/api/state", "times": 100000, "status": 503,
                            "body": '{"error": "Down for a minute."}'})
    speaks(hearing, "Down for a minute.", lambda: None)
    polls = len(desk.service.requests("GET", "api/state"))
    desk.service.wait_for_request("GET", "api/state", count=polls + 2)
    expect(hearing.spoken()[-2:] != ["Down for a minute."] * 2, "each poll says it again")
    before = len(hearing.spoken())
    desk.service.fail_with({"path": "/api/state", "times": 100000, "status": 503,
                            "body": '{"error": "Down for an hour."}'})
    wait_until("the other words", lambda: hearing.spoken()[before:])
    expect(hearing.spoken()[before:] == ["Down for an hour."], f"heard {hearing.spoken()}")
    desk.service.fail_with(SLOW)
    desk.reader.gone(name="Down for an hour.")


def lose_the_session(desk, hearing):
    desk.service.fail_with({"path": "/api/state", "times": 100000, "status": 401})
    speaks(hearing, SIGNED_OUT, lambda: None)
    desk.reader.find("Sign in with Google", roles=BUTTON)
    desk.reader.gone(SIGNED_OUT)
    expect(hearing.spoken().count(SIGNED_OUT) == 1, f"heard {hearing.spoken()}")


def hear(build):
    with Desk(build) as desk:
        desk.reader.find(name="Only mine")
        desk.reader.find("Real issue", roles=BUTTON)
        hearing = Hearing(desk.reader)
        desk.service.fail_with(SLOW)
        decide(desk, hearing)
        refresh(desk, hearing)
        lose_the_service(desk, hearing)
        lose_the_session(desk, hearing)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(hear))
