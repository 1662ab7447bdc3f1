"""What a colleague does rises as one toast; the icon's badge counts one's own open tickets."""

import sys
import time

from desk import SIGNED_IN, Desk, expect, run, wait_until

TOAST = ("alert message",)
LAUNCHER = "com.canonical.Unity.LauncherEntry"


class Launcher:
    """Listens on the session bus as a dock does."""

    def __init__(self, session):
        self.session = session
        self.heard = session.folder / "launcher"
        with open(self.heard, "wb") as out:
            session.start("launcher", ["dbus-monitor", "--session", f"interface='{LAUNCHER}'"],
                          stdout=out)
        wait_until("the launcher to listen", lambda: "NameAcquired" in self.heard.read_text())

    def badges(self):
        """The counts told so far; None where it was cleared."""
        counts = []
        for told in self.heard.read_text().split("member=Update")[1:]:
            count = told.split('string "count"')[1].split("int64")[1].split()[0]
            shown = told.split('string "count-visible"')[1].split("boolean")[1].split()[0]
            counts.append(int(count) if shown == "true" else None)
        return counts


def my_open_tickets(service, me):
    files = [detail["file"] for detail in service.state()["files"].values()]
    return [file for file in files
            if file["status"] != "reviewed" and file.get("assignee") == me]


def others(build):
    with Desk(build, reviewer=None) as desk:
        launcher = Launcher(desk.session)
        desk.second_start(SIGNED_IN.format("renny"))
        reader, service = desk.reader, desk.service
        reader.find(name="Only mine")

        mine = my_open_tickets(service, "renny@tessarine.example")
        expect(mine, "the demo gives Renny nothing to do")
        wait_until("the badge", lambda: launcher.badges() == [len(mine)])
        expect("example.tessarine.Vellix.desktop" in launcher.heard.read_text(),
               "the badge names no desktop entry")

        # Three things in one poll: the newest alone is told, and goes by itself after a while.
        for text in ("First.", "Second.", "Third."):
            service.colleague_acts(text=text)
        shown = reader.find(contains="Third.", roles=TOAST)
        expect("Jorvas" in shown.name, f"it says {shown.name!r}")
        seen = time.monotonic()
        expect(not reader.find_all(contains="Second.", roles=TOAST),
               "a second toast stands beside it")
        reader.gone(contains="Third.", roles=TOAST)
        expect(time.monotonic() - seen < 20, "the toast stayed too long")

        # Told not to, it tells no more; and the badge goes with its setting at the next poll.
        reader.key("ctrl+comma")
        reader.press(reader.find(name="Tell me when the other person does something",
                                 roles=("check box",)))
        reader.press(reader.find(name="Show my open tickets on the Dock icon",
                                 roles=("check box",)))
        reader.key("Escape")
        polls = len(service.requests("GET", "api/state"))
        service.colleague_acts(text="Unheard.")
        service.wait_for_request("GET", "api/state", count=polls + 2)
        expect(not reader.find_all(contains="Unheard.", roles=TOAST),
               "it was told all the same")
        wait_until("the badge to go", lambda: launcher.badges()[-1] is None)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(others))
