"""A book as its text and pictures, before anything typesets it."""

import random
import re
from dataclasses import dataclass, field

from packages import Packages

# What would need quoting in one of the typesetters, and addresses, which none of them breaks alike;
# nor words that the text itself has broken.
UNPLAIN = re.compile(r"[\\{}$#%&_^~<>|*`@\"]|://|\w-(?: |$)|"
                     r"[^\x20-\x7e\xa1-\xff\u0400-\u045f\u2010-\u2026]")
WORDS = range(34, 70)
TEXTS = {
    "en": ("debian-faq", "usr/share/doc/debian/FAQ/debian-faq.en.txt.gz"),
    "fr": ("debian-faq-fr", "usr/share/doc/debian/FAQ/debian-faq.fr.txt.gz"),
    "ru": ("debian-faq-ru", "usr/share/doc/debian/FAQ/debian-faq.ru.txt.gz"),
    "de": ("developers-reference-de",
           "usr/share/developers-reference/de/developers-reference.txt.gz"),
    "es": ("maint-guide-es", "usr/share/doc/maint-guide-es/maint-guide.es.txt.gz"),
}


@dataclass
class Word:
    text: str
    other_font: bool = False
    larger: bool = False
    new_line: bool = False  # a line begins here by force


@dataclass
class Art:
    """A picture, or a barcode where there are digits."""
    seed: int
    digits: str = ""
    change: str = ""  # "changed", "moved" or "missing"
    cell: int = 0     # of the picture, the one that changed
    aside: tuple[float, float] = (0, 0)  # points it moved by


@dataclass
class Sheet:
    """What begins on a page of its own and leaves some of it free, so that a change stays on it."""
    kind: str  # "text", "list", "table", "pictures", "codes", "cover" or "plain"
    title: str
    paragraphs: list[list[Word]] = field(default_factory=list)
    art: list[Art] = field(default_factory=list)


@dataclass
class Book:
    name: str
    language: str
    sheets: list[Sheet]


def paragraphs_of(text: str, cyrillic: bool) -> list[list[str]]:
    """Plain paragraphs of some length in those letters, each of them once."""
    found: dict[str, list[str]] = {}
    for part in re.split(r"\n\s*\n", text):
        words = part.split()
        plain = " ".join(words)
        if len(words) in WORDS and not UNPLAIN.search(plain) and plain[0].isalpha():
            letters = sum("\u0400" <= letter <= "\u04ff" for letter in plain)
            if max(map(len, words)) < 22 and (letters > len(plain) / 2) == cyrillic:
                found.setdefault(plain[:60], words)
    return list(found.values())


def check_digit(digits: str) -> str:
    total = sum(int(digit) * (3 if i % 2 else 1) for i, digit in enumerate(digits[:12]))
    return str(-total % 10)


def code(rng: random.Random) -> str:
    digits = "978" + "".join(rng.choice("0123456789") for _ in range(9))
    return digits + check_digit(digits)


def composed(name: str, language: str, packages: Packages, per_sheet: int,
             plan: list[str]) -> Book:
    """A book whose sheets are of the kinds planned, the same at every call."""
    rng = random.Random(f"book {name}")
    texts = paragraphs_of(packages.text(*TEXTS[language]), language == "ru")
    rng.shuffle(texts)
    turn = 0

    def paragraph() -> list[Word]:
        nonlocal turn
        # Beyond its end the text begins anew, the halves of its paragraphs the other way round.
        words, again = texts[turn % len(texts)], turn // len(texts)
        turn += 1
        at = len(words) * again // 3 % len(words)
        return [Word(text) for text in words[at:] + words[:at]]

    sheets = []
    for number, kind in enumerate(plan, 1):
        sheet = Sheet(kind, f"{number}. {texts[number % len(texts)][0].strip('.,;:()')}")
        if kind == "cover":
            sheet.art = [Art(rng.randrange(1 << 30)), Art(0, code(rng))]
            sheet.paragraphs = [paragraph()[:24]]
        elif kind in ("pictures", "codes"):
            for _ in range(3):
                sheet.art.append(Art(rng.randrange(1 << 30),
                                     code(rng) if kind == "codes" else ""))
                sheet.paragraphs.append(paragraph()[:9])
        else:
            sheet.paragraphs = [paragraph() for _ in range(per_sheet)]
        sheets.append(sheet)
    return Book(name, language, sheets)
