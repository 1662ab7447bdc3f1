"""Two PDFs of one's own, and script/demo: what differs is found, decided, and still so tomorrow."""

import os
import signal
import subprocess
import sys
from pathlib import Path

from desk import Trouble, WARNINGS, expect, run
from private_session import LIMIT, PrivateSession, wait_until
from reader import Reader
from service import Service

PROJECT = Path(__file__).resolve().parents[2]
BOOK = "salt-text"
TITLE = "The Book of One's Own"
STATE = "kept"
PAGE = "3"  # where the proof has another word than what was sent
CARD = ("list item",)


def make_proofs(session, build):
    """A supplier's proof and what it was made from, as the demo's books print them."""
    books = Service(session, build / "vellix_demo_service")
    paths = []
    for name, repaired in (("proof", False), ("sent", True)):
        path = session.folder / f"{name}.pdf"
        path.write_bytes(books.proof(BOOK, repaired=repaired))
        paths.append(path)
    books.child.stdin.close()
    books.child.wait(timeout=LIMIT)
    return paths


class Demo:
    """script/demo as a person starts it, on the session's display."""

    def __init__(self, session, build, *arguments):
        session.environment.update({"BUILD": str(build), "BUILT": "1"})
        self.session = session
        self.child = session.start("demo", [PROJECT / "script/demo", *arguments],
                                   cwd=session.folder)
        try:
            self.reader = Reader(session, "vellix").attach()
        except Trouble as trouble:
            raise Trouble(f"{trouble}; script/demo said: {session.errors_of('demo')}") from None

    def close(self):
        """Closes the window, after which all that was started ends."""
        self.reader.key("alt+F4")
        try:
            code = self.child.wait(timeout=LIMIT)
        except subprocess.TimeoutExpired:
            raise Trouble("script/demo still ran after its window was closed") from None
        expect(code == 0, f"script/demo ended with {code}: {self.session.errors_of('demo')}")
        said = [line for line in self.session.errors_of("demo").splitlines()
                if WARNINGS.search(line)]
        expect(not said, "the program warned:\n  " + "\n  ".join(said))


def open_page(reader):
    """The page with the changed word, wherever the ticket opened."""
    reader.press_named(PAGE)
    reader.find(name=f"Page {PAGE}", roles=("heading",))


def review_ones_own_proofs(build):
    build = Path(build).resolve()
    with PrivateSession() as session:
        make_proofs(session, build)
        arguments = ["--proof", "proof.pdf", "--sent", "sent.pdf", "--title", TITLE,
                     "--state", STATE]
        demo = Demo(session, build, *arguments)
        reader = demo.reader
        reader.press_named(TITLE, roles=CARD)
        reader.find(contains="things to look at on", limit=3 * LIMIT)
        open_page(reader)
        reader.find(name="One word changed", roles=CARD)
        reader.press_named("Real issue")
        reader.find(contains="Marked a real issue.")
        demo.close()

        # Another day: all that was started has ended, and its profile is gone.
        demo = Demo(session, build, *arguments)
        demo.reader.press_named(TITLE, roles=CARD)
        open_page(demo.reader)
        folded = demo.reader.find(name="One word changed", roles=("push button", "button"))
        told = demo.reader.description(folded)
        expect("issue" in told.lower(), f"what was decided is told as {told!r}")
        demo.close()


if __name__ == "__main__":
    sys.exit(run(review_ones_own_proofs))
