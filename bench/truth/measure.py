"""How much of what differs between two PDFs the demo service's check finds, and what beside it.

    measure.py BUILD [--only MAKER] [--rounds N] [--no-rivals] [--no-manual]

Documents of several makers, languages and layouts are made of texts in Debian's packages, changed
in known places and checked; so are the same documents unchanged, and one manual as two releases of
Debian have it. Then what Debian packages for the same is run on the same pairs. The files, what was
told of each and a report of all that was missed stay in BUILD/../truth. Ends with 1 when something
is over its budget.
"""

import argparse
import statistics
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from checking import Trouble, checked  # noqa: E402
from counting import Score, share_good  # noqa: E402
from documents import DOCUMENTS, ROUNDS, Documents, Pair  # noqa: E402
from first_page import first_page  # noqa: E402
from packages import RIVALS, TOOLS, Packages, how_to_install, missing  # noqa: E402
from rivals import side_by_side  # noqa: E402

LEAST_RECALL = 0.98
MOST_FALSE = 1.0  # in 50 pages
LEAST_OVERLAP = 0.7
MOST_SECONDS = 60
MOST_TO_FIRST_PAGE = 3  # seconds


class Bench:
    def __init__(self, build: Path, options: argparse.Namespace):
        self.service = build / "vellix_demo_service"
        self.folder = build.parent / "truth"
        self.options = options
        self.documents = Documents(self.folder, Packages(self.folder / "packages"))
        self.report = []
        self.faults = []

    def run(self) -> int:
        chosen = [one for one in DOCUMENTS if self.options.only in (None, one.maker)]
        changed_pairs = list(self.documents.changed(chosen, self.options.rounds))
        changed = self.scored(changed_pairs)
        unchanged = self.scored(list(self.documents.unchanged(chosen)))
        self.tell(changed, unchanged)
        if not self.options.no_manual:
            self.time_manual()
        if not self.options.no_rivals and not missing(RIVALS):
            first = [pair for pair in changed_pairs if " 0 " in pair.name]
            side_by_side(first, None if self.options.no_manual else self.documents.manual())
        elif not self.options.no_rivals:
            print(f"\nNot installed: {', '.join(missing(RIVALS))}; what Debian packages for the "
                  f"same is not run. {how_to_install(missing(RIVALS))}")
        print(f"\nAll that was missed, loose or false: {self.folder / 'report.txt'}")
        for fault in self.faults:
            print(f"BROKEN: {fault}")
        return 1 if self.faults else 0

    def scored(self, pairs: list[Pair]) -> Score:
        total = Score()
        for pair in pairs:
            told, took = checked(self.service, pair.proof, pair.sent)
            score = Score().add(pair.truths, told)
            print(f"{pair.name:34} {told['pages']:4} pages {took:6.1f} s   "
                  f"{sum(score.found.values()):4} of {sum(score.planted.values()):4} found, "
                  f"{score.false} false", flush=True)
            self.note(pair, score)
            (self.folder / "report.txt").write_text("\n".join(self.report) + "\n")
            total.join(score)
        return total

    def note(self, pair: Pair, score: Score) -> None:
        self.report.append(f"== {pair.name}: --check {pair.proof} {pair.sent}")
        for truth in score.missed:
            boxes = [[round(side, 4) for side in box] for box in (truth.boxes or [[]])[0]]
            self.report.append(f"  MISSED {truth.kind}, page {truth.page}: {truth.what} {boxes}")
        for truth, good in score.loose:
            boxes = [[round(side, 4) for side in box] for box in truth.boxes[0]]
            self.report.append(f"  LOOSE {good:.2f} {truth.kind}, page {truth.page}: {truth.what} "
                               f"{boxes} {truth.ref_boxes or ''}")
        for one in score.wrong:
            box = [round(side, 4) for side in one.get("box") or []]
            self.report.append(f"  FALSE {one['kind']}, page {one['page']}: {one['title']} | "
                               f"{one.get('detail')} {box}")

    def tell(self, changed: Score, unchanged: Score) -> None:
        print("\n| change | planted | found | recall | box overlap, median | 0.7 and more |\n"
              "|---|---:|---:|---:|---:|---:|")
        for kind, planted, found, median, share in changed.rows():
            where = f"{median:.2f} | {100 * share:.1f} %" if median is not None else "— | —"
            print(f"| {kind} | {planted} | {found} | {100 * found / planted:.1f} % | {where} |")
            self.hold(found / planted >= LEAST_RECALL, f"{kind}: {found} of {planted} found")
            if median is not None:
                self.hold(median >= LEAST_OVERLAP, f"{kind}: boxes overlap by {median:.2f}")
        overlaps = [one for all_of_it in changed.overlaps.values() for one in all_of_it]
        if overlaps:
            print(f"| all | {sum(changed.planted.values())} | {sum(changed.found.values())} | "
                  f"{100 * changed.recall():.1f} % | {statistics.median(overlaps):.2f} | "
                  f"{100 * share_good(overlaps):.1f} % |")
        print(f"\nNot counted, since pdftotext cannot tell their place: {changed.unplaced}")
        print("\n| pairs | pages | false findings | in 50 pages |\n|---|---:|---:|---:|")
        for name, score in (("changed", changed), ("unchanged", unchanged)):
            print(f"| {name} | {score.pages} | {score.false} | {score.false_for_pages():.2f} |")
            self.hold(score.false_for_pages() <= MOST_FALSE,
                      f"{name} pairs: {score.false} false findings in {score.pages} pages")

    def time_manual(self) -> None:
        pair = self.documents.manual()
        told, took = checked(self.service, pair.proof, pair.sent)
        open_ones = sum(one["state"] == "open" for one in told["findings"])
        print(f"\n{pair.name}, two releases: {took:.1f} s, {open_ones} findings, "
              f"{len({one['page'] for one in told['findings'] if one['state'] == 'open'})} pages")
        self.hold(took <= MOST_SECONDS, f"the manual: {took:.1f} s, and {MOST_SECONDS} at most")
        first = first_page(self.service, pair.proof, pair.sent)
        print(f"Its first page was there {first:.2f} s after the demo service was started")
        self.hold(first <= MOST_TO_FIRST_PAGE,
                  f"the manual's first page: {first:.2f} s, and {MOST_TO_FIRST_PAGE} at most")

    def hold(self, good: bool, otherwise: str) -> None:
        if not good:
            self.faults.append(otherwise)


def main() -> int:
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=Path)
    parser.add_argument("--only", choices=[one.maker for one in DOCUMENTS])
    parser.add_argument("--rounds", type=int, default=ROUNDS)
    parser.add_argument("--no-rivals", action="store_true")
    parser.add_argument("--no-manual", action="store_true")
    options = parser.parse_args()
    if missing(TOOLS):
        print(f"Not installed: {', '.join(missing(TOOLS))}. The documents are made with them: "
              f"{how_to_install(missing(TOOLS))}")
        return 1
    return Bench(options.build.resolve(), options).run()


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Trouble as trouble:
        sys.exit(f"FAILED: {trouble}")
