"""What a check found, held against what was changed."""

import re
import statistics
from collections import defaultdict
from dataclasses import dataclass, field

from overlap import Box, likeness, touch
from truths import FITTING, GONE, KINDS, OF_PAGES, Truth

SILENT = {"pass", "expected"}
GOOD_OVERLAP = 0.7
PAGES = 50  # that false findings are told for


def shown(finding: dict) -> list[Box]:
    """All its boxes on the proof."""
    boxes = finding.get("boxes") or ([finding["box"]] if finding.get("box") else [])
    return [tuple(box) for box in boxes]


def shown_before(finding: dict) -> list[Box]:
    return [tuple(finding["ref_box"])] if finding.get("ref_box") else []


def pages_named(finding: dict) -> set[int]:
    """The pages its words begin with, from 0: "Page 5 of …", "Pages 5 to 7 …"."""
    named = re.match(r"Pages? (\d+)(?: (?:and|to) (\d+))?", finding.get("detail") or "")
    if not named:
        return {finding["page"]}
    first = int(named[1])
    return set(range(first - 1, int(named[2] or first)))


def tells(finding: dict, truth: Truth) -> bool:
    """Whether it tells of this very change."""
    if finding["kind"] not in FITTING[truth.kind][0]:
        return False
    if truth.kind == "page moved":
        return "elsewhere" in finding["title"] and truth.page in pages_named(finding)
    if truth.kind == "page inserted":
        return "more" in finding["title"] and truth.page in pages_named(finding)
    if truth.kind == "page missing":
        return "missing" in finding["title"] and truth.page in pages_named(finding)
    if truth.kind in OF_PAGES:
        return truth.page in pages_named(finding)
    return finding["page"] == truth.page and any(touch(shown(finding), boxes)
                                                 for boxes in truth.boxes)


def follows(finding: dict, truth: Truth) -> bool:
    """Whether it tells of what came along with a change: of another break behind it, say."""
    fitting, beside = FITTING[truth.kind]
    if finding["kind"] == "picture" and truth.rules:
        return touch(shown(finding), [box for page, box in truth.rules if page == finding["page"]])
    if finding["kind"] not in fitting | beside:
        return False
    where = [box for page, box in truth.told if page == finding["page"]]
    return touch(shown(finding), where)


def overlap(finding: dict, truth: Truth) -> float:
    if truth.kind in GONE:
        return likeness(shown_before(finding), truth.ref_boxes)
    return max((likeness(shown(finding), boxes) for boxes in truth.boxes), default=0.0)


@dataclass
class Score:
    planted: dict[str, int] = field(default_factory=lambda: defaultdict(int))
    found: dict[str, int] = field(default_factory=lambda: defaultdict(int))
    overlaps: dict[str, list[float]] = field(default_factory=lambda: defaultdict(list))
    false: int = 0
    pages: int = 0
    unplaced: int = 0  # changes whose place is not known, and which are not counted
    missed: list[Truth] = field(default_factory=list)
    wrong: list[dict] = field(default_factory=list)
    loose: list[tuple[Truth, float]] = field(default_factory=list)

    def add(self, truths: list[Truth], told: dict) -> "Score":
        findings = [one for one in told["findings"] if one["kind"] not in SILENT]
        for truth in truths:
            if not truth.boxes and truth.kind not in OF_PAGES:
                self.unplaced += 1
                continue
            self.planted[truth.kind] += 1
            best = [one for one in findings if tells(one, truth) and partner_right(told, truth)]
            if not best:
                self.missed.append(truth)
                continue
            self.found[truth.kind] += 1
            if truth.kind not in OF_PAGES:
                good = max(overlap(one, truth) for one in best)
                self.overlaps[truth.kind].append(good)
                if good < GOOD_OVERLAP:
                    self.loose.append((truth, good))
        wrong = [one for one in findings
                 if not any(tells(one, truth) or follows(one, truth) for truth in truths)]
        self.wrong += wrong
        self.false += len(wrong)
        self.pages += told["pages"]
        return self

    def join(self, other: "Score") -> None:
        for kind in KINDS:
            self.planted[kind] += other.planted[kind]
            self.found[kind] += other.found[kind]
            self.overlaps[kind] += other.overlaps[kind]
        self.false += other.false
        self.pages += other.pages
        self.unplaced += other.unplaced
        self.missed += other.missed
        self.wrong += other.wrong
        self.loose += other.loose

    def recall(self) -> float:
        planted = sum(self.planted.values())
        return sum(self.found.values()) / planted if planted else 1.0

    def false_for_pages(self) -> float:
        return PAGES * self.false / self.pages if self.pages else 0.0

    def rows(self) -> list[tuple[str, int, int, float | None, float | None]]:
        """Kind, planted, found, the median of the overlaps, and the share of good ones."""
        rows = []
        for kind in KINDS:
            if self.planted[kind]:
                all_of_it = self.overlaps[kind]
                rows.append((kind, self.planted[kind], self.found[kind],
                             statistics.median(all_of_it) if all_of_it else None,
                             share_good(all_of_it) if all_of_it else None))
        return rows


def share_good(overlaps: list[float]) -> float:
    return sum(one >= GOOD_OVERLAP for one in overlaps) / len(overlaps)


def partner_right(told: dict, truth: Truth) -> bool:
    """A moved page must be shown beside the page that it was."""
    if truth.partner is None:
        return True
    return any(one["page"] == truth.page and one["moved"] and one["partner"] == truth.partner
               for one in told.get("partners", []))
