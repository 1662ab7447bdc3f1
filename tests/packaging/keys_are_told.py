"""Fails when a shortcut of a command is not told by the manual page or by the README.

keys_are_told.py BUILD
"""

import re
import sys
from pathlib import Path

from packing import PROJECT, report

COMMAND = re.compile(r'Command\{"\w+", "[^"]*", "([^"]+)"')


def main(build):
    source = Path(PROJECT, "src", "shell", "commands.cpp").read_text(encoding="utf-8")
    shortcuts = COMMAND.findall(source)
    complaints = [] if shortcuts else ["there are no shortcuts"]
    pages = {"the manual page": Path(build, "packaging", "vellix.1"),
             "the README": PROJECT / "README.md"}
    for where, path in pages.items():
        text = path.read_text(encoding="utf-8").replace("\\-", "-")
        told = re.split(r"[\s,|]+", text.replace("Ctrl+,", "Ctrl+comma"))
        complaints += [f"{where} does not tell {key}" for key in shortcuts
                       if key.replace("Ctrl+,", "Ctrl+comma") not in told]
    return report(complaints)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
