"""A reviewer opens the settings by key, changes some, and finds them so after a restart."""

import sys
from pathlib import Path

from desk import Desk, expect, run, wait_until
from reader import STATE_CHECKED

REVIEWED = "Fold reviewed tickets into their own group"
NOTES = "Show the notes panel"


def is_on(reader, label):
    return reader.has(reader.find(name=label, roles=("check box",)), STATE_CHECKED)


def chosen(reader, label):
    return reader.has(reader.find(name=label, roles=("radio button",)), STATE_CHECKED)


def stored(desk):
    path = Path(desk.session.environment["XDG_CONFIG_HOME"]) / "vellix" / "defaults.ini"
    return dict(line.split("=", 1) for line in path.read_text().splitlines() if "=" in line)


def activate(session, title):
    window = session.run("xdotool", "search", "--onlyvisible", "--name", title).split()[0]
    session.run("xdotool", "windowactivate", "--sync", window)


def settings(build):
    with Desk(build) as desk:
        reader = desk.reader
        reader.find(name="Reviewed", roles=("button", "push button"))
        reader.key("ctrl+comma")
        reader.find(name="Heads-ups")
        for label in (REVIEWED, NOTES):
            expect(is_on(reader, label), f"{label!r} was not on at first")
        expect(chosen(reader, "Match the Mac"), "the appearance did not follow the system at first")

        # Everything takes effect at once: the folded group opens into a plain one, the panel goes.
        reader.press(reader.find(name=REVIEWED, roles=("check box",)))
        reader.gone(name="Reviewed", roles=("button", "push button"))
        reader.press(reader.find(name=NOTES, roles=("check box",)))
        reader.gone(contains="Still open on other pages")
        reader.press(reader.find(name="Dark", roles=("radio button",)))
        wait_until("dark to be chosen", lambda: chosen(reader, "Dark"))
        reader.key("Escape")
        reader.gone(name="Heads-ups")
        wait_until("the settings on disk", lambda: stored(desk).get("Appearance") == "dark")
        kept = stored(desk)
        expect(kept.get("FoldReviewed") == "false", f"FoldReviewed is {kept}")
        expect(kept.get("ShowNotes") == "false", f"ShowNotes is {kept}")
        expect("DockBadge" not in kept, "a setting that nobody touched was written")
        desk.close_window()

        desk.start_program()
        reader = desk.reader
        reader.find(name="Only mine")
        reader.key("ctrl+comma")
        wait_until("the settings as they were left",
                   lambda: chosen(reader, "Dark") and not is_on(reader, REVIEWED)
                   and not is_on(reader, NOTES) and is_on(reader, "Show checks that passed"))
        # With the main window the program ends, though the settings stand open.
        activate(desk.session, "^Vellix$")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(settings))
