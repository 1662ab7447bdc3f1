"""What Debian packages for comparing PDFs, on the same pairs.

comparepdf tells whether two files differ, and no more. diffpdf has a window alone: what can be
measured is how long it takes until all is compared, and which pairs of pages it then lists, always
a page beside that of the same number. Neither tells a change by itself, so a change counts as shown
where its page is listed. diff-pdf is not packaged in Debian 12.
"""

import json
import subprocess
import time
from collections import defaultdict
from dataclasses import dataclass, field
from pathlib import Path

from checking import Trouble
from documents import Pair
from truths import KINDS

HERE = Path(__file__).resolve().parent
WAYS = {"diffpdf, words": "", "diffpdf, appearance": "--appearance"}
COMPARES = {"comparepdf, text": "-ct", "comparepdf, appearance": "-ca"}
LIMIT = 500
ATTEMPTS = 3  # its window does not always come up on a display that has just begun


@dataclass
class Shown:
    planted: dict[str, int] = field(default_factory=lambda: defaultdict(int))
    shown: dict[str, int] = field(default_factory=lambda: defaultdict(int))
    idle: int = 0  # pages listed without a change on them
    pages: int = 0
    seconds: float = 0


def window(option: str, proof: Path, sent: Path) -> dict:
    for _ in range(ATTEMPTS):
        done = subprocess.run(["/usr/bin/python3", "-B", HERE / "window.py", option, proof, sent],
                              capture_output=True, timeout=LIMIT)
        if done.returncode == 0:
            break
    if done.returncode:
        raise Trouble(f"diffpdf {option} {sent} {proof}: {done.stderr.decode()[-300:]}")
    return json.loads(done.stdout)


def count(pairs: list[Pair], option: str) -> Shown:
    all_of_it = Shown()
    for pair in pairs:
        told = window(option, pair.proof, pair.sent)
        listed = set(told["pages"])
        for truth in pair.truths:
            all_of_it.planted[truth.kind] += 1
            all_of_it.shown[truth.kind] += truth.page in listed
        all_of_it.idle += len(listed - {truth.page for truth in pair.truths})
        all_of_it.pages += len(listed)
        all_of_it.seconds += told["seconds"]
    return all_of_it


def compare(option: str, pair: Pair) -> tuple[str, float]:
    began = time.monotonic()
    done = subprocess.run(["comparepdf", option, "-v2", pair.sent, pair.proof],
                          capture_output=True, timeout=LIMIT)
    said = (done.stdout + done.stderr).decode().strip()
    return said, time.monotonic() - began


def side_by_side(pairs: list[Pair], manual: Pair | None) -> None:
    ways = {name: count(pairs, option) for name, option in WAYS.items()}
    print(f"\nBeside it, {len(pairs)} of the same pairs: changes whose page diffpdf lists.\n")
    print(f"| change | planted | {' | '.join(WAYS)} |\n|---|---:|---:|---:|")
    planted = next(iter(ways.values())).planted
    for kind in KINDS:
        if planted[kind]:
            print(f"| {kind} | {planted[kind]} | "
                  f"{' | '.join(str(one.shown[kind]) for one in ways.values())} |")
    print(f"| pages listed | — | {' | '.join(str(one.pages) for one in ways.values())} |")
    print(f"| of these without a change | — | "
          f"{' | '.join(str(one.idle) for one in ways.values())} |")
    for name, option in COMPARES.items():
        said: dict[str, int] = defaultdict(int)
        for pair in pairs:
            said[compare(option, pair)[0]] += 1
        print(f"{name}: " + ", ".join(f"{times} × “{words}”" for words, times in said.items()))
    if manual:
        print("\n| the manual | seconds | what it tells |\n|---|---:|---|")
        for name, option in WAYS.items():
            told = window(option, manual.proof, manual.sent)
            print(f"| {name} | {told['seconds']:.1f} | {len(told['pages'])} pairs of pages |")
        for name, option in COMPARES.items():
            said_of_it, took = compare(option, manual)
            print(f"| {name} | {took:.1f} | “{said_of_it}” |")
