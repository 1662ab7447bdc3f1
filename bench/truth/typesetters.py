"""Each makes a PDF of a book in its own way; what it made of the same book before is kept."""

import hashlib
import html
import shutil
import subprocess
from collections.abc import Callable
from pathlib import Path

import drawings
from book import Art, Book, Sheet, Word
from writer import writer_text


class Workshop:
    """Typesets below a folder. `salt` tells one making of the same text from another."""

    def __init__(self, folder: Path):
        self.folder = folder

    def made(self, maker: str, book: Book, marked: bool = False, salt: str = "") -> Path:
        key = hashlib.sha256(repr((maker, book, marked, salt, VERSION)).encode()).hexdigest()[:16]
        place = self.folder / f"{book.name}-{key}"
        made = place / "made.pdf"
        if not made.exists():
            shutil.rmtree(place, ignore_errors=True)
            place.mkdir(parents=True)
            MAKERS[maker](book, place, marked)
            if not made.exists():
                raise RuntimeError(f"{maker} made nothing of {book.name}: see {place}")
        return made


VERSION = 1


def run(*command: str | Path, cwd: Path) -> None:
    with (cwd / "log").open("a") as log:
        subprocess.run(list(map(str, command)), check=True, cwd=cwd, timeout=300, stdout=log,
                       stderr=log, stdin=subprocess.DEVNULL)


def art_file(art: Art, place: Path, name: str, marked: bool, kind: str = "svg") -> str:
    source = place / f"{name}.svg"
    source.write_text(drawings.svg(art, marked))
    if kind != "svg":
        options = ["--zoom", "4"] if kind == "png" else []
        run("rsvg-convert", "-f", kind, *options, "-o", f"{name}.{kind}", source, cwd=place)
    if kind == "pdf":  # in the plain form that every typesetter can take in
        run("qpdf", "--qdf", "--object-streams=disable", "--replace-input", f"{name}.pdf",
            cwd=place)
    return f"{name}.{kind}"


def runs(words: list[Word]) -> list[tuple[Word, str]]:
    """The words with the same looks joined, each run as its first word and its text."""
    joined: list[tuple[Word, str]] = []
    for word in words:
        looks = (word.other_font, word.larger)
        if joined and not word.new_line and looks == (joined[-1][0].other_font,
                                                      joined[-1][0].larger):
            joined[-1] = (joined[-1][0], f"{joined[-1][1]} {word.text}")
        else:
            joined.append((word, word.text))
    return joined


def each_art(sheet: Sheet):
    return zip(sheet.art, sheet.paragraphs)


def tex(book: Book, place: Path, marked: bool) -> None:
    """One column with hyphenation and running heads."""
    def text(words: list[Word]) -> str:
        parts = []
        for word, plain in runs(words):
            if word.other_font:
                plain = rf"\textsf{{{plain}}}"
            if word.larger:
                plain = rf"{{\large {plain}}}"
            parts.append(rf"\linebreak[4]{plain}" if word.new_line else plain)
        return " ".join(parts)

    lines = [r"\documentclass[10pt,twoside]{book}\usepackage{graphicx}",
             r"\pdfpagewidth=432pt\pdfpageheight=648pt\paperwidth=432pt\paperheight=648pt",
             r"\textwidth=318pt\textheight=520pt\oddsidemargin=-15pt\evensidemargin=-15pt",
             r"\topmargin=-30pt\emergencystretch=20pt\raggedbottom\begin{document}",
             r"\pagestyle{myheadings}\markboth{A Book of Answers}{Questions Asked Often}"]
    for number, sheet in enumerate(book.sheets):
        lines.append(rf"\section*{{{sheet.title}}}\thispagestyle{{myheadings}}")
        if sheet.art:
            for i, (art, words) in enumerate(each_art(sheet)):
                file = art_file(art, place, f"art{number}-{i}", marked, "pdf")
                lines.append(rf"\noindent\includegraphics[width={drawings.WIDTH}bp]{{{file}}}"
                             rf"\par\noindent {text(words)}\par\bigskip")
        elif sheet.kind in ("list", "table"):
            items = "\n".join(rf"\item {text(words)}" for words in sheet.paragraphs)
            lines.append(rf"\begin{{itemize}}{items}\end{{itemize}}")
        else:
            lines.extend(text(words) + "\n" for words in sheet.paragraphs)
        lines.append(r"\newpage")
    lines.append(r"\end{document}")
    (place / "made.tex").write_text("\n".join(lines))
    run("pdflatex", "-interaction=nonstopmode", "-halt-on-error", "made.tex", cwd=place)


def roff(book: Book, place: Path, marked: bool) -> None:
    """Two columns."""
    def text(words: list[Word]) -> str:
        lines = []
        for word, plain in runs(words):
            if word.new_line:
                lines.append(".br")
            if word.other_font:
                plain = rf"\f[HR]{plain}\f[]"
            if word.larger:
                plain = rf"\s+2{plain}\s0"
            lines.append(rf"\&{plain}")
        return "\n".join(lines)

    lines = [".nr PS 10p", ".nr VS 12p", ".nr PO 1.6c", ".nr LL 17.8c", ".nr HM 2c", ".nr FM 2c",
             ".ds LH Questions et réponses", ".ds CH", ".ds RH %", ".ds CF", ".2C"]
    for number, sheet in enumerate(book.sheets):
        if number:
            lines += [".1C", r".if (\n[nl]>100p) .bp", ".2C"]
        lines += [".SH", rf"\&{sheet.title}"]
        if sheet.art:
            for i, (art, words) in enumerate(each_art(sheet)):
                file = art_file(art, place, f"art{number}-{i}", marked, "pdf")
                lines += [f".PDFPIC -L {file} {drawings.WIDTH}p {drawings.HEIGHT}p", ".LP",
                          text(words)]
        else:
            for words in sheet.paragraphs:
                lines += [".LP" if sheet.kind in ("text", "plain") else r".IP \(bu 1.5n",
                          text(words)]
    (place / "made.ms").write_text("\n".join(lines) + "\n")
    run("sh", "-c", "groff -k -U -ms -mfr -P-pa4 -dpaper=a4 -Tpdf made.ms > made.pdf", cwd=place)


PAGE = """<!DOCTYPE html><html lang="{language}"><meta charset="utf-8"><title>{name}</title><style>
@page {{ size: {size}; margin: 56pt 48pt; {head} }}
body {{ font: 10pt/1.35 "{font}", serif; margin: 0; text-align: {align} }}
section {{ break-after: page }} .flow {{ columns: {columns}; column-gap: 22pt; column-fill: auto;
height: 640pt; hyphens: auto }} h2 {{ font-size: 14pt; margin: 0 0 8pt }} p {{ margin: 0 0 6pt }}
img {{ display: block; width: {width}pt; height: {height}pt }} li {{ margin: 0 0 5pt }}
td {{ width: 50%; vertical-align: top; border: 0.6pt solid #777; padding: 4pt; text-align: left }}
.f {{ font-family: "{other}" }} .s {{ font-size: 12pt; line-height: 1 }} figure {{ margin: 0 }}
</style>{body}</html>"""


def page(book: Book, place: Path, marked: bool, **looks: str) -> None:
    def text(words: list[Word]) -> str:
        parts = []
        for word, plain in runs(words):
            looks = " ".join(name for name, on in (("f", word.other_font), ("s", word.larger))
                             if on)
            plain = html.escape(plain)
            plain = f'<span class="{looks}">{plain}</span>' if looks else plain
            parts.append(f"<br>{plain}" if word.new_line else plain)
        return " ".join(parts)

    def inner(number: int, sheet: Sheet) -> str:
        if sheet.art:
            return "".join(
                f'<figure><img src="{art_file(art, place, f"art{number}-{i}", marked)}">'
                f"<p>{text(words)}</p></figure>" for i, (art, words) in enumerate(each_art(sheet)))
        if sheet.kind == "list":
            items = "".join(f"<li>{text(words)}</li>" for words in sheet.paragraphs)
            return f"<ol>{items}</ol>"
        if sheet.kind == "table":
            cells = [f"<td>{text(words)}</td>" for words in sheet.paragraphs]
            rows = "".join(f"<tr>{''.join(cells[i:i + 2])}</tr>" for i in range(0, len(cells), 2))
            return f"<table>{rows}</table>"
        return "".join(f"<p>{text(words)}</p>" for words in sheet.paragraphs)

    body = "".join(f'<section><h2>{html.escape(sheet.title)}</h2><div class="flow">'
                   f"{inner(number, sheet)}</div></section>"
                   for number, sheet in enumerate(book.sheets))
    (place / "made.html").write_text(PAGE.format(
        language=book.language, name=book.name, body=body, width=drawings.WIDTH,
        height=drawings.HEIGHT, **looks))


def chromium(book: Book, place: Path, marked: bool) -> None:
    """A sheet of paper in one column, with lists and tables, unhyphenated and ragged."""
    page(book, place, marked, size="A4", head="", columns="1", align="left",
         font="Liberation Serif", other="Liberation Sans")
    run("chromium", "--headless", "--no-sandbox", "--disable-gpu", "--no-pdf-header-footer",
        f"--user-data-dir={place / 'profile'}", f"--print-to-pdf={place / 'made.pdf'}",
        (place / "made.html").as_uri(), cwd=place)
    shutil.rmtree(place / "profile", ignore_errors=True)


def weasyprint(book: Book, place: Path, marked: bool) -> None:
    """Two justified columns with hyphenation, a running head and numbers at the foot."""
    page(book, place, marked, size="A4", columns="2", align="justify", font="DejaVu Serif",
         other="DejaVu Sans", head='@top-center { content: "La guía"; font-size: 8pt } '
                                   '@bottom-right { content: counter(page); font-size: 8pt }')
    run("weasyprint", "made.html", "made.pdf", cwd=place)


def writer(book: Book, place: Path, marked: bool) -> None:
    """One column in Cyrillic letters, with tables and lists."""
    files = {(number, i): art_file(art, place, f"art{number}-{i}", marked, "png")
             for number, sheet in enumerate(book.sheets) for i, art in enumerate(sheet.art)}
    (place / "made.fodt").write_text(writer_text(book, place, files))
    run("soffice", f"-env:UserInstallation={(place / 'profile').as_uri()}", "--headless",
        "--convert-to", "pdf", "made.fodt", cwd=place)
    shutil.rmtree(place / "profile", ignore_errors=True)


def cairo(book: Book, place: Path, marked: bool) -> None:
    """Covers: a title, a picture, a blurb and a barcode on each."""
    names = []
    for number, sheet in enumerate(book.sheets):
        ground = "#eef1e8" if number % 2 else "#f4ece0"
        parts = [f'<rect width="380" height="560" fill="{ground}"/>',
                 '<text x="30" y="70" font-family="EB Garamond" font-size="30">'
                 f"{html.escape(sheet.title)}</text>"]
        for i, art in enumerate(sheet.art):
            inner = drawings.svg(art, marked)
            parts.append(f'<g transform="translate({40 + 100 * (i > 0)} {100 + 300 * i})">{inner}'
                         "</g>")
        for i, words in enumerate(sheet.paragraphs):
            for line in range(0, len(words), 8):
                text = html.escape(" ".join(word.text for word in words[line:line + 8]))
                parts.append(f'<text x="30" y="{250 + 70 * i + 13 * line / 8:.1f}" '
                             f'font-family="DejaVu Serif" font-size="9.5">{text}</text>')
        names.append(f"cover{number}.svg")
        (place / names[-1]).write_text(drawings.canvas("".join(parts), 380, 560))
    run("rsvg-convert", "-f", "pdf", "-o", "made.pdf", *names, cwd=place)


MAKERS: dict[str, Callable[[Book, Path, bool], None]] = {
    "pdfTeX": tex, "groff": roff, "Chromium": chromium, "WeasyPrint": weasyprint,
    "LibreOffice": writer, "cairo": cairo}
