"""The documents of the bench and the pairs made of them."""

import random
import re
import subprocess
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

from book import Book, Sheet, composed
from leaves import reordered, resized_and_inked
from packages import Packages
from places import readings, sizes
from planting import art_planted, truths_of, words_planted
from truths import Truth
from typesetters import Workshop

ROUNDS = 4
SHEETS = (["text", "pictures", "list", "plain", "text", "plain", "table", "pictures", "plain"] * 5
          + ["codes", "text", "codes", "pictures", "codes", "list", "pictures"])


@dataclass
class Document:
    maker: str
    language: str
    layout: str
    per_sheet: int
    sheets: list[str]


DOCUMENTS = [
    Document("pdfTeX", "en", "one column, hyphenated, running heads", 6, SHEETS),
    Document("groff", "fr", "two columns", 7, SHEETS),
    Document("Chromium", "de", "one ragged column, lists, tables", 8, SHEETS),
    Document("WeasyPrint", "es", "two hyphenated columns, running heads", 8, SHEETS),
    Document("LibreOffice", "ru", "one column, Cyrillic, lists, tables", 8, SHEETS),
    Document("cairo", "en", "covers with barcodes", 1, ["cover"] * 16),
]


@dataclass
class Pair:
    name: str
    proof: Path
    sent: Path
    truths: list[Truth]


class Documents:
    def __init__(self, folder: Path, packages: Packages):
        self.folder = folder
        self.packages = packages
        self.workshop = Workshop(folder / "made")

    def book(self, document: Document) -> Book:
        return composed(document.maker, document.language, self.packages, document.per_sheet,
                        document.sheets)

    def changed(self, documents: list[Document], rounds: int) -> Iterator[Pair]:
        for document in documents:
            for turn in range(rounds):
                yield self.with_changes(document, turn)
                yield self.with_other_pages(document, turn)

    def with_changes(self, document: Document, turn: int) -> Pair:
        book, make = self.book(document), self.workshop.made
        rng = random.Random(f"changes {document.maker} {turn}")
        sent = make(document.maker, book)
        changed, spots = words_planted(book, sent, rng)
        art = art_planted(changed, rng)
        made = make(document.maker, changed)
        marked = make(document.maker, book, marked=True)
        truths = truths_of(book, changed, spots, art, (sent, marked, made))
        pages = [i for i, sheet in enumerate(book.sheets) if sheet.kind == "plain"]
        proof = self.place(f"{document.maker}-{turn}-changed.pdf")
        if pages:
            truths += resized_and_inked(made, pages, proof, rng)
        else:
            proof.write_bytes(made.read_bytes())
        return Pair(f"{document.maker} {turn} changed", proof, self.kept(sent, document), truths)

    def with_other_pages(self, document: Document, turn: int) -> Pair:
        rng = random.Random(f"pages {document.maker} {turn}")
        sent = self.workshop.made(document.maker, self.book(document))
        other = self.book(document)
        other = Book(f"{other.name} strange", other.language, strange(other, rng))
        stranger = self.workshop.made(document.maker, other)
        proof = self.place(f"{document.maker}-{turn}-pages.pdf")
        truths = reordered(sent, stranger, proof, rng)
        return Pair(f"{document.maker} {turn} pages", proof, self.kept(sent, document), truths)

    def unchanged(self, documents: list[Document]) -> Iterator[Pair]:
        """The same text typeset twice, and what another program makes of the very same pages."""
        for document in documents:
            book = self.book(document)
            sent = self.workshop.made(document.maker, book)
            again = self.place(f"{document.maker}-again.pdf")
            again.write_bytes(self.workshop.made(document.maker, book, salt="again").read_bytes())
            kept = self.kept(sent, document)
            yield Pair(f"{document.maker} typeset again", again, kept, [])
            distilled = self.place(f"{document.maker}-distilled.pdf")
            if not distilled.exists():
                subprocess.run(["gs", "-q", "-dAutoRotatePages=/None", "-sDEVICE=pdfwrite", "-o",
                                distilled, sent], check=True, capture_output=True)
            if texts(distilled) == texts(sent):
                yield Pair(f"{document.maker} through Ghostscript", distilled, kept, [])
            else:
                print(f"{document.maker} through Ghostscript: its text reads otherwise, left out")

    def kept(self, sent: Path, document: Document) -> Path:
        """Under a name that says whose it is."""
        kept = self.place(f"{document.maker}-sent.pdf")
        kept.write_bytes(sent.read_bytes())
        return kept

    def place(self, name: str) -> Path:
        (self.folder / "pairs").mkdir(parents=True, exist_ok=True)
        return self.folder / "pairs" / re.sub(r"[^\w.-]", "_", name)

    def manual(self) -> Pair:
        newer, older = self.packages.manual_twice()
        return Pair(f"a manual of {len(sizes(older))} and {len(sizes(newer))} pages", newer, older,
                    [])


def texts(pdf: Path) -> list[str]:
    return [reading.text for reading in readings(pdf)]


def strange(book: Book, rng: random.Random) -> list[Sheet]:
    """Sheets of words drawn from the whole book, which stand nowhere like that."""
    words = [word for sheet in book.sheets for paragraph in sheet.paragraphs for word in paragraph]
    sheets = [sheet for sheet in book.sheets if sheet.kind not in ("pictures", "codes")][:12]
    for sheet in sheets:
        sheet.title = f"{rng.randrange(100, 200)}. {rng.choice(words).text.strip('.,;:()')}"
        sheet.paragraphs = [rng.sample(words, len(paragraph)) for paragraph in sheet.paragraphs]
        for art in sheet.art:
            art.seed += 1
    return sheets
