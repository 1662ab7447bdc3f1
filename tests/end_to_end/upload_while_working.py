"""The largest PDF that is taken goes up while pages are turned; one byte more is never sent."""

import sys

from chooser import choose_pdf
from desk import Desk, expect, run
from reader import STATE_ENABLED

TICKET = "carto-text"
BUTTON = ("button", "push button")
MOST = 59_999_999
MOST_GROWTH = 16_000_000  # of memory, while it goes up


def of_size(pdf, size):
    """The same PDF, with a comment behind it that makes it so long."""
    end = pdf[pdf.rindex(b"startxref"):]
    padding = size - len(pdf) - len(end) - len(b"\n%\n")
    return pdf + b"\n%" + b" " * padding + b"\n" + end


def resting_memory(desk):
    """What the program holds in bytes, its shared libraries aside."""
    with open(f"/proc/{desk.program.pid}/status", encoding="ascii") as status:
        lines = dict(line.split(":", 1) for line in status)
    return 1024 * int(lines["RssAnon"].split()[0])


def sent(service):
    return service.requests("PUT", f"api/files/{TICKET}/versions")


def turn_all(desk, names, key):
    for name in names:
        desk.reader.key(key)
        desk.reader.find(f"Page {name}", roles=("heading",))


def begin_upload(desk, version, path):
    desk.reader.press_named("Upload revision")
    desk.reader.find(name=f"Upload v{version}", roles=("dialog",))
    choose_pdf(desk.reader, path)
    desk.reader.press_named("Upload")
    desk.reader.gone(name=f"Upload v{version}", roles=("dialog",))


def upload_while_working(build):
    with Desk(build, reviewer="renny") as desk:
        reader, service = desk.reader, desk.service
        file = service.state()["files"][TICKET]["file"]
        names = [page["label"] for page in file["pages"]]
        proofs = desk.session.folder / "proofs"
        proofs.mkdir()
        pdf = service.proof(TICKET, repaired=True)
        (proofs / "largest.pdf").write_bytes(of_size(pdf, MOST))
        (proofs / "larger.pdf").write_bytes(of_size(pdf, MOST + 1))

        reader.press_named(f"{file['title']} {file['component']}", roles=("list item",))
        reader.find(f"Page {names[0]}", roles=("heading",))
        begin_upload(desk, 2, proofs / "larger.pdf")
        reader.find(contains="That PDF is too big. Use one under 60 MB, like the low-res export.")
        expect(not sent(service), "it was sent although it is too big")

        # What pages and chooser hold is held from here on.
        turn_all(desk, names[1:], "ctrl+Down")
        turn_all(desk, reversed(names[:-1]), "ctrl+Up")
        service.keep_waiting(checks=True)
        service.fail_with({"path": f"/api/files/{TICKET}/versions", "drip_ms": 25})
        before = resting_memory(desk)
        begin_upload(desk, 2, proofs / "largest.pdf")
        busy = reader.find(name="Uploading…", roles=BUTTON)
        expect(not reader.has(busy, STATE_ENABLED), "it could be sent once more")
        under_way = sent(service)[0]["bytes"]
        most = resting_memory(desk)
        for name, key in [(name, "ctrl+Down") for name in names[1:]]:
            turn_all(desk, [name], key)
            most = max(most, resting_memory(desk))
        now = sent(service)[0]["bytes"]
        expect(under_way < now < MOST, f"it did not go up meanwhile: {under_way} and then {now}")
        expect(most - before < MOST_GROWTH, f"the upload took {most - before} bytes of memory")
        print(f"the upload took {most - before} bytes of memory")

        reader.find(contains="Uploaded v2. The Mac mini is checking it against v1.")
        expect([entry["bytes"] for entry in sent(service)] == [MOST], f"{sent(service)} was sent")
        reader.find(f"Page {names[0]}", roles=("heading",))
        reader.find(name="v2, Revision by You, being checked", roles=("radio button",))
        service.keep_waiting(checks=False)
        reader.find(name="v2, Revision by You", roles=("radio button",))
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(upload_while_working))
