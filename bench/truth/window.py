"""Reads diffpdf's window, which is all that it tells its result by.

    window.py OPTION PROOF SENT

Prints as JSON the seconds until it had compared all pages, and the pages of the proof, from 0, that
it lists as differing. On a display of its own, through the accessibility bus.
"""

import json
import os
import re
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "end_to_end"))

from private_session import PrivateSession, wait_until  # noqa: E402

LIMIT = 400  # seconds for a pair
START = 30  # seconds until it tells how far it is
DONE = re.compile(r"(\d+) differ[s]? (\d+)/(\d+) compared")
LISTED = re.compile(r"\d+ vs\. (\d+)")


def every(node):
    """The node and all below it; what goes while it is read is left out."""
    if node is None:
        return
    try:
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:  # pyatspi raises whatever the bus does
        return
    yield node
    for child in children:
        yield from every(child)


def label_of(desktop):
    labels = (node.name for node in every(desktop) if node.getRoleName() == "label")
    return next((label for label in labels if " compared" in label), "")


def compared(desktop):
    told = DONE.match(label_of(desktop))
    return told if told and told[2] == told[3] else None


def main(option: str, proof: str, sent: str) -> None:
    with PrivateSession() as session:
        os.environ.update(session.environment)
        began = time.monotonic()
        session.start("diffpdf", ["diffpdf", *([option] if option else []), sent, proof])
        import pyatspi  # it looks for its bus at once
        desktop = pyatspi.Registry.getDesktop(0)
        wait_until("diffpdf's window", lambda: label_of(desktop), START, 0.2)
        wait_until("diffpdf to have compared all", lambda: compared(desktop), LIMIT, 0.2)
        took = time.monotonic() - began
        pages = [int(told[1]) - 1 for node in every(desktop)
                 if node.getRoleName() == "list item" and (told := LISTED.match(node.name))]
        print(json.dumps({"seconds": took, "pages": pages}))


if __name__ == "__main__":
    main(*sys.argv[1:4])
