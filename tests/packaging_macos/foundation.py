"""Objective-C++ of the Mac's adapters as a program over GNUstep's Foundation."""

import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def compiled(folder, main, *adapters):
    """The program made of this main file and of those of the adapters, in that folder."""
    source, program = folder / "main.mm", folder / "told"
    source.write_text(main)
    headers = subprocess.run(["gcc", "-print-file-name=include"], check=True,
                             capture_output=True, text=True).stdout.strip()
    subprocess.run(["clang++-19", "-std=c++23", "-fblocks", "-fobjc-exceptions",
                    "-fobjc-runtime=gcc", "-fconstant-string-class=NSConstantString",
                    "-I", ROOT / "src", "-isystem", ROOT / "tests/mac_syntax",
                    "-isystem", "/usr/include/GNUstep", "-idirafter", headers, source,
                    *(ROOT / "src/platform/macos" / adapter for adapter in adapters),
                    "-o", program, "-lgnustep-base", "-lobjc"], check=True)
    return program
