"""The program draws its window by itself and loads no driver for it, unless the person asks for one;
and no reader of pictures but that of what it shows."""

import sys
from pathlib import Path

from desk import Desk, expect, run, wait_until

# Of Mesa and of the vendors: what GLX and EGL load to draw with.
DRIVERS = ("_dri.so", "libGLX_", "libEGL_", "libgallium")
READERS = ("libqtiff", "libqmng", "libqicns")


def loaded(desk, libraries):
    """One of these in the program's memory, once its board is on the display."""
    wait_until("the tickets", lambda: desk.reader.rows("Tickets"))
    maps = Path(f"/proc/{desk.program.pid}/maps").read_text(encoding="utf-8")
    return next((name for name in libraries if name in maps), None)


def draw_by_itself(build):
    with Desk(build) as desk:
        expect(loaded(desk, DRIVERS) is None, "a driver of graphics was loaded")
        expect(loaded(desk, READERS) is None, "readers of pictures were loaded that show none")
        desk.close_window()

        desk.session.environment["QT_QUICK_BACKEND"] = "rhi"
        desk.start_program()
        expect(loaded(desk, DRIVERS) is not None, "the system's graphics were asked for and not taken")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(draw_by_itself))
