"""The window follows the desktop between light and dark while it is open."""

import subprocess
import sys
from pathlib import Path

from desk import Desk, run, wait_until

APPEARANCE = "org.freedesktop.appearance"
LIGHT, DARK = "#F3F6F7", "#12100F"
PORTAL = Path(__file__).with_name("settings_portal.py")


class DeskWithPortal(Desk):
    """The portal is there before the program asks."""

    def start_program(self, url=None):
        self.portal = self.session.start(
            "portal", ["/usr/bin/python3", "-B", PORTAL, APPEARANCE, "color-scheme", "1"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.session.read_line(self.portal, "the portal")
        super().start_program(url)

    def change(self, *words):
        self.portal.stdin.write((" ".join(words) + "\n").encode())
        self.portal.stdin.flush()

    def wait_for_ground(self, colour):
        """Most of the sign-in screen is the ground."""
        wait_until(f"a window that is {colour}", lambda: self.ground() == colour, pause=0.2)

    def ground(self):
        picture = self.session.folder / "ground.png"
        self.session.picture(picture)
        return self.session.run("convert", picture, "-crop", "1x1+750+700", "-format",
                                "#%[hex:p{0,0}]", "info:").strip()[:7].upper()


def follow(build):
    with DeskWithPortal(build, reviewer=None) as desk:
        desk.wait_for_ground(DARK)
        desk.change(APPEARANCE, "color-scheme", "2")
        desk.wait_for_ground(LIGHT)
        desk.change(APPEARANCE, "color-scheme", "1")
        desk.wait_for_ground(DARK)
        # Whoever has no wish gets what the palette looks like, and that is light here.
        desk.change(APPEARANCE, "color-scheme", "0")
        desk.wait_for_ground(LIGHT)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(follow))
