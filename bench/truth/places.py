"""Where words and pictures came to stand on the pages of a PDF, as poppler's own tools tell it."""

import bisect
import functools
import re
import subprocess
import unicodedata
from dataclasses import dataclass
from html import unescape
from pathlib import Path

from overlap import Box

TOKEN = re.compile(r'<(page|line|word)(?: width="([^"]*)" height="([^"]*)")?'
                   r'(?: xMin="([^"]*)" yMin="([^"]*)" xMax="([^"]*)" yMax="([^"]*)")?>'
                   r"(?:([^<]*)</word>)?")
LEAST_CANVAS = 30  # dots


@dataclass(frozen=True)
class Stood:
    """A word as it stands."""
    text: str
    page: int
    line: int  # counted over the whole file
    box: Box


def letters(text: str) -> str:
    """As it is compared: no spaces, ligatures undone, no hyphens, one apostrophe."""
    plain = unicodedata.normalize("NFKC", text).replace("\u2019", "'")
    return "".join(c for c in plain if not c.isspace() and c not in "-\u2010\u00ad\u200b")


class Reading:
    """The words of a file, findable by their letters whatever the lines' ends did to them."""

    def __init__(self, words: list[Stood]):
        self.words = words
        self.starts, parts, length = [], [], 0
        for word in words:
            self.starts.append(length)
            parts.append(letters(word.text))
            length += len(parts[-1])
        self.text = "".join(parts)

    def span(self, before: str, middle: str, behind: str) -> list[Stood] | None:
        """The words that `middle` came to, where it stands between the others only once."""
        for reach in (18, 40, 90, 999):
            head = letters(before)[-reach:]
            sought = head + letters(middle) + letters(behind)[:reach]
            at = self.text.find(sought)
            if at < 0:
                return None
            if self.text.find(sought, at + 1) < 0:
                start = at + len(head)
                return self.between(start, start + len(letters(middle)))
        return None

    def between(self, start: int, end: int) -> list[Stood]:
        first = bisect.bisect_right(self.starts, start) - 1
        last = bisect.bisect_left(self.starts, end)
        return self.words[first:last]


def boxes_by_line(words: list[Stood], page: int) -> list[Box]:
    lines: dict[int, list[Box]] = {}
    for word in words:
        if word.page == page:
            lines.setdefault(word.line, []).append(word.box)
    return [(min(b[0] for b in row), min(b[1] for b in row),
             max(b[0] + b[2] for b in row) - min(b[0] for b in row),
             max(b[1] + b[3] for b in row) - min(b[1] for b in row)) for row in lines.values()]


@functools.lru_cache(maxsize=8)
def readings(pdf: Path) -> list[Reading]:
    """One for each page."""
    told = subprocess.run(["pdftotext", "-bbox-layout", pdf, "-"], check=True,
                          capture_output=True).stdout.decode()
    words, page, line, width, height = [], -1, 0, 1.0, 1.0
    for kind, wide, high, left, top, right, bottom, text in TOKEN.findall(told):
        if kind == "page":
            page, width, height = page + 1, float(wide), float(high)
        elif kind == "line":
            line += 1
        else:
            x, y, x2, y2 = (float(side) for side in (left, top, right, bottom))
            words.append(Stood(unescape(text), page, line, (x / width, y / height, (x2 - x) / width,
                                                            (y2 - y) / height)))
    return [Reading([word for word in words if word.page == one]) for one in range(page + 1)]


@functools.lru_cache(maxsize=64)
def sizes(pdf: Path) -> list[tuple[float, float]]:
    """Of the pages, in points."""
    told = subprocess.run(["pdfinfo", "-f", "1", "-l", "9999", pdf], check=True,
                          capture_output=True).stdout.decode()
    return [(float(wide), float(high))
            for wide, high in re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+)", told)]


@functools.lru_cache(maxsize=512)
def canvases(pdf: Path, page: int) -> list[Box]:
    """The canvases on a page of a marked book, from its top to its foot."""
    data = subprocess.run(["pdftoppm", "-r", "144", "-f", str(page + 1), "-l", str(page + 1), pdf],
                          check=True, capture_output=True).stdout
    _, width, height, _, pixels = re.split(rb"\s", data, maxsplit=4)
    wide, high = int(width), int(height)
    ones = bytes(200) + b"\1" * 56
    reds = pixels[0::3].translate(ones)
    greens = pixels[1::3].translate(b"\1" * 90 + bytes(166))
    found: list[list[int]] = []
    for y in range(high):
        row = slice(y * wide, (y + 1) * wide)
        both = (int.from_bytes(reds[row], "big") & int.from_bytes(greens[row], "big")).to_bytes(
            wide, "big")
        left, right = both.find(1), both.rfind(1) + 1
        if right - left < LEAST_CANVAS:
            continue
        if found and found[-1][3] == y:
            found[-1][0], found[-1][2] = min(found[-1][0], left), max(found[-1][2], right)
            found[-1][3] = y + 1
        else:
            found.append([left, y, right, y + 1])
    return [(left / wide, top / high, (right - left) / wide, (bottom - top) / high)
            for left, top, right, bottom in found if bottom - top >= LEAST_CANVAS]
