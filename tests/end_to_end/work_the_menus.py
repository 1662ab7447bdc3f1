"""The menus by mouse, by keyboard and by their shortcuts; and what they offer to nobody."""

import sys

from desk import Desk, expect, run, wait_until

ENTRY = ("menu item",)


def menus(build):
    with Desk(build) as desk:
        reader, service = desk.reader, desk.service
        reader.find(name="Only mine")
        wait_until("a ticket on show", lambda: reader.find_all(name="100%"))

        # By mouse.
        reader.click(reader.find(name="View ", roles=ENTRY))
        reader.click(reader.find(name="Zoom in", roles=ENTRY))
        reader.find(name="125%")
        reader.gone(name="Zoom in", roles=ENTRY)

        # By keyboard alone: F10 opens the first, the arrows lead on, Return takes one.
        reader.key("F10")
        reader.find(name="Quit Vellix", roles=ENTRY)
        reader.key("Right")
        reader.find(name="Make report", roles=ENTRY)
        reader.key("Right")
        reader.find(name="Fit the page", roles=ENTRY)
        reader.key("Down", "Down", "Return")
        reader.find(name="100%")

        # By shortcut.
        reader.key("ctrl+equal")
        reader.find(name="125%")
        reader.key("ctrl+0")
        reader.find(name="100%")
        reader.key("ctrl+r")
        reader.find(contains="Up to date.")
        reader.key("ctrl+shift+s")
        reader.find(contains="Asked the Mac mini to sync.")
        service.wait_for_request("POST", "api/jobs")

        # Esc closes without doing anything.
        reader.click(reader.find(name="Review", roles=ENTRY))
        reader.find(name="Make report", roles=ENTRY)
        reader.key("Escape")
        reader.gone(name="Make report", roles=ENTRY)

        # Signed out, what needs a session is there but does nothing.
        reader.click(reader.find(name="Vellix", roles=ENTRY))
        reader.click(reader.find(name="Sign out", roles=ENTRY))
        reader.find(name="Supplier proofs, checked against what we sent.")
        service.wait_for_request("POST", "api/logout")
        service.clear_log()
        reader.click(reader.find(name="Review", roles=ENTRY))
        for name in ("Sync", "Refresh", "Make report"):
            reader.click(reader.find(name=name, roles=ENTRY))
        reader.key("Escape")
        reader.gone(name="Make report", roles=ENTRY)
        reader.key("ctrl+r", "ctrl+shift+s", "ctrl+shift+p")
        expect(not service.log(), f"nobody asked for {service.log()}")
        reader.key("ctrl+q")
        expect(desk.ended() == 0, "the program did not end well")


if __name__ == "__main__":
    sys.exit(run(menus))
