"""Fails when words name a key by the Mac's sign and are not written out for other keyboards.

keys_are_written.py SRC
"""

import re
import sys
from pathlib import Path

# Knows the signs, and gives them their names.
TABLE = "pieces/written_keys.cpp"
COMMENT = re.compile(r"^\s*//.*$", re.MULTILINE)
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
SIGN = re.compile("[⌃⌥⇧⌘↩⎋⌫⌦⇥␣⏎]")
# Once its words have been taken out.
WRITTEN = re.compile(r"\b(?:Theme\.keys|writtenKeys)\([^()]*\)")


def complaints(table, files):
    """table: the text of the table; files: path below src/ to text."""
    known = set(SIGN.findall(COMMENT.sub("", table)))
    said = []
    for path, text in sorted(files.items()):
        text = COMMENT.sub("", text)
        for words in LITERAL.findall(text):
            said += [f"{path}: {TABLE} has no name for {sign}, as in \"{words}\""
                     for sign in sorted(set(SIGN.findall(words)) - known)]
        marked = LITERAL.sub(lambda literal: '"!"' if SIGN.search(literal[1]) else '""', text)
        if '"!"' in WRITTEN.sub("", marked):
            said.append(f"{path}: keys are named by signs that no other keyboard has; "
                        "give the words through Theme.keys or writtenKeys")
    return said


def main(src):
    root = Path(src)
    files = {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8")
             for pattern in ("*.hpp", "*.cpp", "*.qml") for path in root.rglob(pattern)}
    table = files.pop(TABLE)
    said = complaints(table, files)
    for sentence in said:
        print(sentence)
    print(f"{len(files)} files looked at, {len(said)} complaints")
    return 1 if said or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
