"""Fails when a view writes or draws in a colour whose contrast is measured nowhere for that view.

colours_are_measured.py SRC TABLE
"""

import re
import sys
from pathlib import Path

from source import texts, verdict

# What words and marks have. Grounds are the table's other side.
USE = re.compile(r"\bTheme\.(?:(fore|strong|onPaper)(?:\.(\w+)|\[)"
                 r"|(text|ink|muted|faint|accent|strongAccent|success|danger|warning|onAccent|onToast)\b)")


def used_in(text):
    """The colours of a view; "fore.*" where one is looked up by its name."""
    return {f"{group}.{name or '*'}" if group else single for group, name, single in USE.findall(text)}


def rows_of(table):
    """View to the colours that are measured for it."""
    rows = {}
    for line in table.splitlines():
        if not line.strip() or line.startswith(("#", "given ")):
            continue
        head, *_, views = line.split(" : ")
        for view in views.split():
            rows.setdefault(view, set()).update(head.split()[1].split(","))
    return rows


def meant(colour, colours):
    if colour.endswith(".*"):
        return any(each.startswith(colour[:-1]) for each in colours)
    return colour in colours


def complaints(table, files):
    """table: the text of the table; files: path below src/ to text."""
    rows = rows_of(table)
    anywhere = rows.get("*", set())
    views = {path.removesuffix(".qml"): used_in(text) for path, text in files.items()}
    said = []
    for view, colours in sorted(views.items()):
        measured = rows.get(view, set())
        said += [f"{view}: {colour} is measured on no ground of this view; give it a row"
                 for colour in sorted(colours) if not meant(colour, measured | anywhere)]
        said += [f"{view}: {colour} is measured, and no longer used"
                 for colour in sorted(measured - anywhere - colours)
                 if not {f"{colour.partition('.')[0]}.*"} & colours]
    said += [f"{view}: there is no such view" for view in sorted(rows.keys() - views.keys() - {"*"})]
    return said


def main(src, table):
    files = texts(src, "*.qml")
    return verdict(complaints(Path(table).read_text(encoding="utf-8"), files), files)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
