"""What is pressed as soon as the window can be seen counts, however much it still has to do."""

import sys

from desk import Desk, expect, run, wait_until
from reader import STATE_CHECKED, Reader

MINE = ("check box",)


def start_and(desk, press):
    """Starts the program and presses at once when its window is there."""
    desk.program = desk.session.start("program", [str(desk.program_binary)])
    wait_until("the window", lambda: desk.session._run_quietly(
        ["xdotool", "search", "--onlyvisible", "--name", "^Vellix$"]).strip(), pause=0.005)
    press()
    desk.reader = Reader(desk.session, desk.program_binary.name).attach()


def press_early(build):
    with Desk(build) as desk:
        box = desk.reader.find("Only mine", roles=MINE)
        x, y, width, height = wait_until("its place", lambda: desk.reader._box(box))
        expect(not desk.reader.has(box, STATE_CHECKED), "it is on from the start")
        desk.close_window()
        desk.service.take_time(400)

        start_and(desk, lambda: desk.session.run("xdotool", "mousemove", str(x + width // 2),
                                                 str(y + height // 2), "click", "1"))
        wait_until("Only mine", lambda: desk.reader.has(
            desk.reader.find("Only mine", roles=MINE), STATE_CHECKED))
        desk.close_window()

        start_and(desk, lambda: desk.reader.key("ctrl+y"))
        desk.reader.find("Activity", roles=("heading",))
        desk.reader.key("Escape")
        desk.reader.gone("Activity", roles=("heading",))
        desk.close_window()

        start_and(desk, lambda: desk.reader.key("F10"))
        desk.reader.find("Settings…", roles=("menu item",))
        desk.reader.key("Escape")
        desk.reader.gone("Settings…", roles=("menu item",))
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(press_early))
