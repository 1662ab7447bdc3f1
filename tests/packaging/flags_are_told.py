"""Fails when a flag that the program reads is not told by --help or by the manual page, or one is
told that it does not read; and when --help or --version need a display or end badly.

flags_are_told.py BUILD
"""

import re
import subprocess
import sys
from pathlib import Path

from packing import PROJECT, report

READ = re.compile(r'"(--[a-z]+)"')
HELPED = re.compile(r"^  (--[a-z]+)", re.MULTILINE)
# The head of an entry in the manual page.
PAGED = re.compile(r"^\.TP\n\.B[IR]* \\-\\-([a-z]+)", re.MULTILINE)
NOTHING = {"PATH": "/usr/bin:/bin"}


def said(build, *arguments):
    """What the program says where there is no display, no home and no bus."""
    ran = subprocess.run([Path(build, "vellix"), *arguments], env=NOTHING, timeout=60,
                         stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    return ran.returncode, ran.stdout, ran.stderr


def read_by_source():
    """The flags in the shell's code, but for the table that tells them."""
    found = {"--help", "--version"}
    for path in Path(PROJECT, "src", "shell").glob("*.?pp"):
        if path.name != "usage.cpp":
            found.update(READ.findall(path.read_text(encoding="utf-8")))
    return found


def differences(where, told, read):
    twice = {name for name in told if told.count(name) > 1}
    return ([f"{where} does not tell {name}" for name in sorted(read - set(told))] +
            [f"{where} tells {name}, which nothing reads" for name in sorted(set(told) - read)] +
            [f"{where} tells {name} twice" for name in sorted(twice)])


def main(build):
    code, help_text, errors = said(build, "--help")
    complaints = [] if (code, errors) == (0, "") else [f"--help ends with {code}: {errors}"]
    code, version, errors = said(build, "--dark", "--version")
    if code or errors or not re.fullmatch(r"Vellix [\d.]+ \(build \d+\)\n", version):
        complaints.append(f"--version ends with {code}: {version}{errors}")
    with open("/dev/full", "w", encoding="utf-8") as full:
        ran = subprocess.run([Path(build, "vellix"), "--help"], env=NOTHING, timeout=60, stdout=full,
                             check=False)
    if ran.returncode != 1:
        complaints.append(f"--help that cannot be written ends with {ran.returncode}")

    read = read_by_source()
    page = Path(build, "packaging", "vellix.1").read_text(encoding="utf-8")
    complaints += differences("--help", HELPED.findall(help_text), read)
    complaints += differences("the manual page", [f"--{name}" for name in PAGED.findall(page)], read)
    return report(complaints)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
