"""Fails when the source names a symbol that the table of symbols does not have.

symbols_are_known.py SRC
"""

import re
import sys
from pathlib import Path

from source import texts, verdict

TABLE = "pieces/symbols.txt"
LITERAL = re.compile(r'"([^"\n]*)"')
SYMBOL = re.compile(r"[a-z][a-z0-9]*(\.[a-z0-9]+)*")
# What is given to an icon or a symbol, up to the end of its line or of its field.
PLACE = re.compile(r"\b\w*(?:icon|symbol)\w*\s*(?::|=|===|==)(?!:)([^;,}\n]*)", re.IGNORECASE)
# The name of a Symbol, wherever it stands among the properties ahead of any child.
NAMED = re.compile(r"\bSymbol\s*\{[^{}]*?\bname:([^\n]*)")
# Dotted words that are file names.
FILE = re.compile(r"\.(json|ini|png|jpg|svg|txt|qml|pdf|zip|sh|app)$")
# Addresses and names on the buses live here.
ELSEWHERE = ("platform/", "gateway/")


def names_in(path, text):
    """Every symbol name that a file of src/ means, each once."""
    found = set()
    for place in [*PLACE.findall(text), *NAMED.findall(text)]:
        found.update(name for name in LITERAL.findall(place) if SYMBOL.fullmatch(name))
    if not path.startswith(ELSEWHERE):
        found.update(name for name in LITERAL.findall(text)
                     if "." in name and SYMBOL.fullmatch(name) and not FILE.search(name))
    return found


def rows_of(table):
    return [line.split()[0] for line in table.splitlines() if line.strip() and line[0] != "#"]


def complaints(table, files):
    """table: the text of the table; files: path below src/ to text."""
    rows = rows_of(table)
    known = set(rows)
    said = [f"{TABLE}: {name} stands there twice" for name in known if rows.count(name) > 1]
    if rows != sorted(rows):
        said.append(f"{TABLE}: the rows are not in order")
    for path, text in sorted(files.items()):
        said += [f"{path}: there is no symbol \"{name}\"; give it a row in {TABLE}"
                 for name in sorted(names_in(path, text) - known)]
    return said


def main(src):
    files = texts(src, "*.hpp", "*.cpp", "*.qml")
    return verdict(complaints(Path(src, TABLE).read_text(encoding="utf-8"), files), files)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
