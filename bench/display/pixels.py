"""The pixels of a virtual display, read from its memory: who looks costs the display nothing."""

import mmap
import struct
import time

from private_session import LIMIT, Trouble

# Of a place's darkest pixels, as many are looked at, and so many of them must be as they are to be.
LOOKED_AT, ALIKE, TOLERANCE = 400, 0.85, 60
DARK = 110  # of 255; paper and placeholders are lighter


class Display:
    """The display whose memory lies in that folder (Xvfb -fbdir), with 32 bits to a pixel."""

    def __init__(self, folder):
        with open(folder / "Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        head = struct.unpack(">25I", self.memory[:100])
        self.start = head[0] + 12 * head[19]  # behind the header and the colours
        self.line = head[12]

    def at(self, x, y):
        """Blue, green and red."""
        offset = self.start + y * self.line + 4 * x
        return self.memory[offset:offset + 3]

    def dark(self, places):
        """The dark pixels in these places (x, y, width, height), evenly chosen: {(x, y): colour}."""
        found = {}
        for left, top, width, height in places:
            for y in range(top, top + height):
                for x in range(left, left + width):
                    colour = self.at(x, y)
                    if max(colour) < DARK:
                        found[x, y] = colour
        step = max(1, len(found) // LOOKED_AT)
        return dict(list(found.items())[::step])

    def shows(self, wanted):
        alike = sum(max(abs(one - other) for one, other in zip(self.at(*place), colour)) <= TOLERANCE
                    for place, colour in wanted.items())
        return alike >= ALIKE * len(wanted)

    def wait_for(self, wanted, child):
        """The moment, on the monotonic clock, when all of that was first to be seen."""
        end = time.monotonic() + LIMIT
        while not self.shows(wanted):
            now = time.monotonic()
            if now > end or child.poll() is not None:
                raise Trouble(f"{child.name} never showed its page")
            time.sleep(0.002)
        return time.monotonic()
