"""Fails when a row of a test's table has no words of its own and is listed as bytes or by an address.

rows_are_words.py TESTS...
"""

import os
import re
import subprocess
import sys

WORDLESS = re.compile(r"\d+-byte object <|\b0x[0-9a-f]{6,}\b")


def complaints(listing):
    """listing: what --gtest_list_tests says. One complaint a table."""
    said, suite = {}, ""
    for line in listing.splitlines():
        if not line.startswith(" "):
            suite = line.split("#")[0].strip(" .")
        elif WORDLESS.search(line):
            said.setdefault(suite, f"{suite}: describe its rows with BOOST_DESCRIBE_STRUCT")
    return list(said.values())


def main(programs):
    said, listed = [], 0
    for program in programs:
        listing = subprocess.run(
            [program, "--gtest_list_tests"], check=True, capture_output=True, text=True, timeout=50,
            errors="replace", env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout
        listed += listing.count("\n")
        said += complaints(listing)
    for sentence in said:
        print(sentence)
    print(f"{listed} lines looked at, {len(said)} complaints")
    return 1 if said or not listed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
