"""The program draws its window by itself and loads no driver for it, unless the person asks for one."""

import sys
from pathlib import Path

from desk import Desk, expect, run, wait_until

# Of Mesa and of the vendors: what GLX and EGL load to draw with.
DRIVERS = ("_dri.so", "libGLX_", "libEGL_", "libgallium")


def driver_of(desk):
    """A driver of graphics in the program's memory, once its board is on the display."""
    wait_until("the tickets", lambda: desk.reader.rows("Tickets"))
    maps = Path(f"/proc/{desk.program.pid}/maps").read_text(encoding="utf-8")
    return next((name for name in DRIVERS if name in maps), None)


def draw_by_itself(build):
    with Desk(build) as desk:
        expect(driver_of(desk) is None, "a driver of graphics was loaded")
        desk.close_window()

        desk.session.environment["QT_QUICK_BACKEND"] = "rhi"
        desk.start_program()
        expect(driver_of(desk) is not None, "the system's graphics were asked for and not taken")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(draw_by_itself))
