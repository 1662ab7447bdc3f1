"""Fails when the logic library is compiled with Qt within reach, or calls into Qt.

core_is_qt_free.py COMPILE_COMMANDS ARCHIVE
"""

import json
import re
import shlex
import subprocess
import sys

REACH = re.compile(r"/qt[56]?(/|$)|/Qt[A-Z]\w*(/|$)|^-?D?QT_", re.IGNORECASE)
SYMBOL = re.compile(r"(?<![\w:])(Q[A-Z]\w*|qt_\w+|Qt::|q(Debug|Warning|Fatal|Critical|BadAlloc)\b"
                    r"|qRegister\w*|qml\w*|operator(<<|>>)\(QDataStream)")


def arguments_in_reach(command):
    """The arguments of one compilation that put Qt in reach."""
    found, words = [], shlex.split(command)
    for index, word in enumerate(words):
        value = None
        if word in ("-I", "-isystem", "-iquote", "-include", "-D") and index + 1 < len(words):
            value = words[index + 1]
        elif word.startswith(("-I", "-D")) and len(word) > 2:
            value = word[2:]
        elif word.startswith("-isystem"):
            value = word[len("-isystem"):]
        if value and REACH.search(value):
            found.append(f"{word} {value}" if word in ("-I", "-isystem", "-D") else word)
    return found


def commands_of_core(database):
    commands = {entry["file"]: entry["command"] for entry in database
                if "/vellix_core.dir/" in entry["command"]}
    return commands


def symbols_of_qt(listing):
    """The undefined symbols of `nm --undefined-only --demangle` that are Qt's."""
    names = (line.split(maxsplit=1) for line in listing.splitlines())
    wanted = {words[1] for words in names if len(words) == 2 and words[0] in ("U", "w", "v")}
    return sorted(name for name in wanted if SYMBOL.search(name))


def main(commands_path, archive):
    with open(commands_path, encoding="utf-8") as file:
        commands = commands_of_core(json.load(file))
    if not commands:
        print("no file of vellix_core is in the compile commands")
        return 1
    bad = 0
    for source, command in sorted(commands.items()):
        for argument in arguments_in_reach(command):
            print(f"{source}: Qt is in reach through {argument}")
            bad += 1
    listing = subprocess.run(["nm", "--undefined-only", "--demangle", archive], check=True,
                             capture_output=True, text=True, timeout=50).stdout
    for symbol in symbols_of_qt(listing):
        print(f"{archive}: calls {symbol}")
        bad += 1
    print(f"{len(commands)} files of the logic looked at, {bad} ties to Qt")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
