"""Fails when a file outside the store's folder does more with a published field than read it.

store_keeps_its_fields.py SRC
"""

import re
import sys

from source import texts, verdict

STORE = "store/store.hpp"
FIELD = re.compile(r"^\s*Published<.+>\s+(\w+)\s*[{;]", re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*")


def fields_of(header):
    return FIELD.findall(header)


def writes_in(fields, text):
    """The published fields that a file writes, or hands on to be written."""
    name = rf"({'|'.join(fields)})\b"
    # Read by calling it: whatever else is done with the Store's own field may end in a write. And
    # whoever holds the Store by another name still has to say what the field is told.
    own = re.compile(rf"(?:\bstore_?[()\s]*(?:\.|->)|\bStore::)\s*{name}(?!\s*\()")
    told = re.compile(rf"(?:\.|->)\s*{name}\s*\.\s*(?:set|edit)\b")
    code = COMMENT.sub("", text)
    return {field for pattern in (own, told) for field in pattern.findall(code)}


def complaints(files):
    """files: path below src/ to text. Returns sentences, none when all is well."""
    fields = fields_of(files.get(STORE, ""))
    if not fields:
        return [f"{STORE}: no published fields are found there"]
    return [f"{path}: writes {field}, which only an operation of the Store may"
            for path, text in sorted(files.items()) if not path.startswith("store/")
            for field in sorted(writes_in(fields, text))]


def main(src):
    files = texts(src, "*.hpp", "*.cpp")
    return verdict(complaints(files), files)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
