"""A book as LibreOffice Writer opens it."""

import base64
from html import escape
from pathlib import Path

import drawings
from book import Book, Word

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
 office:mimetype="application/vnd.oasis.opendocument.text" office:version="1.3">
<office:styles>
<style:style style:name="Standard" style:family="paragraph">
<style:paragraph-properties fo:margin-bottom="6pt" fo:text-align="justify"/>
<style:text-properties style:font-name="Liberation Serif" fo:font-family="Liberation Serif"
 fo:font-size="10.5pt" fo:language="ru" fo:country="RU"/></style:style>
<style:style style:name="Title" style:family="paragraph" style:parent-style-name="Standard">
<style:paragraph-properties fo:break-before="page" fo:text-align="start"/>
<style:text-properties fo:font-size="15pt" fo:font-weight="bold"/></style:style>
</office:styles><office:automatic-styles>
<style:style style:name="F" style:family="text"><style:text-properties
 fo:font-family="DejaVu Sans"/></style:style>
<style:style style:name="S" style:family="text"><style:text-properties
 fo:font-size="13pt"/></style:style>
<style:style style:name="G" style:family="graphic"><style:graphic-properties
 style:vertical-pos="top" style:vertical-rel="baseline"/></style:style>
<style:page-layout style:name="P"><style:page-layout-properties fo:page-width="595pt"
 fo:page-height="842pt" fo:margin-top="50pt" fo:margin-bottom="50pt" fo:margin-left="62pt"
 fo:margin-right="62pt"/><style:header-style><style:header-footer-properties
 fo:min-height="20pt"/></style:header-style></style:page-layout></office:automatic-styles>
<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="P">
<style:header><text:p>Вопросы и ответы, <text:page-number/></text:p></style:header>
</style:master-page></office:master-styles><office:body><office:text>
"""
FOOT = "</office:text></office:body></office:document>"


def span(word: Word, plain: str) -> str:
    plain = escape(plain)
    if word.other_font:
        plain = f'<text:span text:style-name="F">{plain}</text:span>'
    if word.larger:
        plain = f'<text:span text:style-name="S">{plain}</text:span>'
    return f"<text:line-break/>{plain}" if word.new_line else plain


def paragraph(words: list[Word]) -> str:
    return f"<text:p>{' '.join(span(word, word.text) for word in words)}</text:p>"


def table(number: int, paragraphs: list[list[Word]]) -> str:
    cells = [f"<table:table-cell>{paragraph(words)}</table:table-cell>" for words in paragraphs]
    cells += ["<table:table-cell><text:p/></table:table-cell>"] * (len(cells) % 2)
    rows = "".join(f"<table:table-row>{''.join(cells[i:i + 2])}</table:table-row>"
                   for i in range(0, len(cells), 2))
    return (f'<table:table table:name="T{number}"><table:table-column '
            f'table:number-columns-repeated="2"/>{rows}</table:table>')


def picture(file: Path) -> str:
    data = base64.b64encode(file.read_bytes()).decode()
    return (f'<text:p><draw:frame draw:style-name="G" text:anchor-type="as-char" '
            f'svg:width="{drawings.WIDTH}pt" svg:height="{drawings.HEIGHT}pt"><draw:image>'
            f"<office:binary-data>{data}</office:binary-data></draw:image></draw:frame></text:p>")


def writer_text(book: Book, place: Path, files: dict[tuple[int, int], str]) -> str:
    parts = [HEAD]
    for number, sheet in enumerate(book.sheets):
        parts.append(f'<text:p text:style-name="Title">{escape(sheet.title)}</text:p>')
        if sheet.art:
            for i, words in enumerate(sheet.paragraphs):
                parts += [picture(place / files[number, i]), paragraph(words)]
        elif sheet.kind == "table":
            parts.append(table(number, sheet.paragraphs))
        elif sheet.kind == "list":
            items = "".join(f"<text:list-item>{paragraph(words)}</text:list-item>"
                            for words in sheet.paragraphs)
            parts.append(f"<text:list>{items}</text:list>")
        else:
            parts += [paragraph(words) for words in sheet.paragraphs]
    return "".join([*parts, FOOT])
