"""What was changed on purpose, and what a check should say of it."""

from dataclasses import dataclass, field

from overlap import Box

# The kinds of findings that tell of it, and those that may follow from it beside them.
FITTING: dict[str, tuple[set[str], set[str]]] = {
    "word changed": ({"words"}, {"breaks"}),
    "word missing": ({"words"}, {"breaks"}),
    "word added": ({"words"}, {"breaks"}),
    "line break moved": ({"breaks"}, set()),
    "font changed": ({"fonts"}, {"breaks"}),
    "size changed": ({"fonts"}, {"breaks"}),
    "picture changed": ({"picture"}, set()),
    "picture moved": ({"picture"}, set()),
    "picture missing": ({"picture"}, set()),
    "page inserted": ({"missing_page"}, set()),
    "page missing": ({"missing_page"}, set()),
    "page moved": ({"extra_page"}, set()),
    "page size changed": ({"size"}, set()),
    "barcode digit changed": ({"barcode"}, {"words", "picture"}),
    "spot colour added": ({"spots"}, {"picture", "hidden"}),
}
KINDS = list(FITTING)
# Told of a page as a whole: no box is asked for.
OF_PAGES = {"page inserted", "page missing", "page moved", "page size changed",
            "spot colour added"}
# What is gone has its place on the reference alone.
GONE = {"word missing"}


@dataclass
class Truth:
    """One change. A page counts from 0: of the proof, or of the reference for a missing one."""
    kind: str
    page: int
    what: str = ""
    boxes: list[list[Box]] = field(default_factory=list)  # on the proof; any of them is right
    ref_boxes: list[Box] = field(default_factory=list)
    told: list[tuple[int, Box]] = field(default_factory=list)  # where all that follows may show
    rules: list[tuple[int, Box]] = field(default_factory=list)  # where a table moved along
    partner: int | None = None  # of a moved page, the page of the reference
