"""Fails when words name a key by the Mac's sign and are not written out for other keyboards.

keys_are_written.py SRC
"""

import re
import sys

from source import texts, verdict

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
    files = texts(src, "*.hpp", "*.cpp", "*.qml")
    table = files.pop(TABLE)
    return verdict(complaints(table, files), files)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
