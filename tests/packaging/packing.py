"""Packs a build for a test."""

import os
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]


def pack(build, out, before=(), **environment):
    """The .deb and the .tar.gz of `build`, packed into the folder `out`. `before` goes ahead of the
    command."""
    subprocess.run([*before, sys.executable, "-B", PROJECT / "packaging" / "pack.py", build, out],
                   check=True, env=os.environ | environment)
    (deb,), (archive,) = Path(out).glob("*.deb"), Path(out).glob("*.tar.gz")
    return deb, archive


def report(complaints):
    """The exit code of a test that has these sentences to say."""
    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0
