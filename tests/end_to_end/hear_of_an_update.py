"""What tells of an update is told to a screen reader, once each time, and is worked by key; signed out,
only what a copy that is too old cannot do without."""

import sys

from desk import SIGNED_IN, expect, run, wait_until
from hearing import Hearing
from learn_of_an_update import BUTTON, DeskThatSleeps, alone, by_key, keyed
from work_by_ear import walk

SIGN_IN = "Sign in with Google"
NOTES = "Proofs & covers."


def hears(desk, hearing, before, words):
    """That this was spoken since then, once, and nothing else was."""
    wait_until(f'"{words}" to be spoken', lambda: hearing.spoken()[before:])
    desk.check(2)
    expect(hearing.spoken()[before:] == [words], f"heard {hearing.spoken()[before:]}")


def stopped(desk, hearing):
    before = len(hearing.spoken())
    desk.hears(version="1.2", build=desk.own + 2, min_build=desk.own + 1)
    hears(desk, hearing, before,
          f"Update Vellix. Vellix 1.2 ({desk.own + 2}) is out, and this copy is too old to keep "
          "going. It takes about a minute and reopens by itself.")
    alone(desk)
    walk(desk.reader, "the screen of an update")


def signed_out(desk, hearing):
    reader = desk.reader
    reader.find(SIGN_IN, roles=BUTTON)
    desk.check(2)
    expect(not reader.find_all("Update now"), "an update is offered to whoever is signed out")
    expect(not hearing.spoken(), f"heard {hearing.spoken()}")

    stopped(desk, hearing)
    reader.key("Return", "space")
    by_key(desk)
    desk.browser.wait_for_page(1)
    url = desk.service.newest()["url"]
    expect(desk.browser.pages() == [url], f"the browser was sent to {desk.browser.pages()}")
    asked = [entry["has_authorization"] for entry in desk.service.requests("GET", "version.json")]
    expect(not any(asked), "it needs a sign-in")

    desk.hears(**desk.newest)
    wait_until("the keyboard at the button", lambda: keyed(reader, SIGN_IN, BUTTON))
    expect(not reader.find_all("Update now"), "an update is offered to whoever is signed out")


def offered(desk, hearing):
    """On the board, and there until it is put off."""
    reader = desk.reader
    before = len(hearing.spoken())
    desk.second_start(SIGNED_IN.format("renny"))
    reader.find(name="Only mine")
    name = f"Vellix 1.1 ({desk.own + 1}) is ready. {NOTES}"
    reader.find(name)
    hears(desk, hearing, before, name)
    walk(reader, "the board with an update on offer")
    by_key(desk)
    desk.browser.wait_for_page(2)
    reader.tab_to("Later", BUTTON)
    reader.key("space")
    reader.gone("Update now")
    stopped(desk, hearing)
    desk.hears()
    reader.gone("Update Vellix")


def hear(build):
    newest = {"version": "1.1", "notes": NOTES}
    with DeskThatSleeps(build, newest=newest, reviewer=None) as desk:
        hearing = Hearing(desk.reader)
        signed_out(desk, hearing)
        offered(desk, hearing)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(hear))
