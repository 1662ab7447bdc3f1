"""A reviewer gives themselves another photo, which stands in the row of people at once."""

import sys
import zlib
from struct import pack

from chooser import choose_file
from desk import Desk, expect, run, wait_until

BUTTON = ("push button", "button")
ASKS = "Pick a photo for your profile."


def chunk(kind, body):
    return pack(">I", len(body)) + kind + body + pack(">I", zlib.crc32(kind + body))


def picture(width, height):
    """A PNG of one colour."""
    rows = (b"\0" + b"\xd0\x60\x20" * width) * height
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def photos(service):
    """Those that the program has fetched."""
    return {entry["path"] for entry in service.requests("GET", "api/blob/")
            if "photos" in entry["path"]}


def change(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        pictures = desk.session.folder / "pictures"
        pictures.mkdir()
        (pictures / "me.png").write_bytes(picture(1000, 400))
        (pictures / "torn.png").write_bytes(picture(1000, 400)[:200])
        before = photos(service)

        reader.press_named("Your page and stats", roles=BUTTON)
        reader.press_named("Change my photo", roles=BUTTON)
        choose_file(reader, pictures / "me.png", ASKS)
        reader.find("Photo updated.")
        service.wait_for_request("PUT", "api/me/photo")
        wait_until("the new photo to be shown", lambda: photos(service) - before)

        reader.press_named("Account", roles=BUTTON)
        reader.press_named("Change my photo…")
        choose_file(reader, pictures / "torn.png", ASKS)
        reader.find("That photo didn't open.")
        expect(len(service.requests("PUT", "api/me/photo")) == 1, "it was sent all the same")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(change))
