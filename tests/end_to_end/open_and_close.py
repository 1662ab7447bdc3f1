"""The activity feed opens and closes any number of times, however fast, by its keys and its menu."""

import sys
import time

from desk import Desk, run, wait_until
from reader import STATE_FOCUSED

HEADING = ("heading",)


def is_open(desk):
    return bool(desk.reader.find_all("Activity", roles=HEADING))


def opened(desk):
    wait_until("the activity", lambda: is_open(desk))


def closed(desk):
    wait_until("the activity to go", lambda: not is_open(desk))


def row(desk):
    return desk.reader.rows("Tickets")[1]


def by_key(desk):
    for _ in range(3):
        desk.reader.key("ctrl+y")
        opened(desk)
        desk.reader.key("Escape")
        closed(desk)
        desk.reader.key("ctrl+y")
        opened(desk)
        desk.reader.key("ctrl+y")
        closed(desk)


def by_menu(desk):
    for _ in range(3):
        desk.reader.key("F10")
        desk.reader.press_named("Review", roles=("menu", "menu item", "push button", "button"))
        desk.reader.press_named("Activity", roles=("menu item",))
        opened(desk)
        desk.reader.key("Escape")
        closed(desk)


def in_a_hurry(desk):
    """Each press counts, also while the last one still fades."""
    for pause in (0, 0.03, 0.06, 0.1, 0.15):
        desk.reader.key("ctrl+y")
        opened(desk)
        desk.reader.key("Escape")
        time.sleep(pause)
        desk.reader.key("ctrl+y")
        time.sleep(1)
        opened(desk)
        desk.reader.key("Escape")
        closed(desk)
    wait_until("the keyboard where it was", lambda: desk.reader.has(row(desk), STATE_FOCUSED))
    for presses in (2, 3, 4, 5, 6, 7):
        desk.reader.key(*["ctrl+y"] * presses)
        time.sleep(1)
        if presses % 2:
            opened(desk)
            desk.reader.key("Escape")
        closed(desk)


def open_and_close(build):
    with Desk(build) as desk:
        desk.reader.find("Tickets", roles=("list",))
        desk.service.take_time(400)
        desk.reader.go_to_ticket(row(desk).name)
        by_key(desk)
        by_menu(desk)
        in_a_hurry(desk)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(open_and_close))
