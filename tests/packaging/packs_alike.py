"""Fails when packing once more, elsewhere, at another time and under other habits, gives other bytes,
or when the time of a checkout gets into compiled-in resources.

packs_alike.py BUILD
"""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from packing import PROJECT, pack, report

COLLECTION = "<RCC><qresource><file>a.txt</file></qresource></RCC>"
LATER = ["faketime", "2033-03-03 03:33:33"]
PROGRAM = "vellix"


def resource(rcc, folder, time):
    """What rcc makes of a file of that age."""
    collection = Path(folder, "a.qrc")
    collection.write_text(COLLECTION)
    Path(folder, "a.txt").write_text("a")
    os.utime(Path(folder, "a.txt"), (time, time))
    return subprocess.run([rcc, collection], check=True, capture_output=True,
                          env={"PATH": os.environ["PATH"]}).stdout


def resource_complaints(build, folder):
    rcc = Path(build, "rcc")
    if resource(rcc, folder, 1_000_000_000) != resource(rcc, folder, 1_500_000_000):
        return ["resources are compiled differently by the age of their files"]
    return []


def elsewhere(build, folder):
    """What there is to install, at another path and of another age."""
    copy = Path(folder, "a build with blanks")
    copy.mkdir()
    shutil.copyfile(Path(build, PROGRAM), copy / PROGRAM)
    (copy / PROGRAM).chmod(0o700)
    for name in ("packaging", "qml"):
        shutil.copytree(Path(build, name), copy / name)
    # The list of what is installed names the folder that it was made for.
    rules = copy / "packaging" / "cmake_install.cmake"
    rules.write_text(rules.read_text().replace(str(Path(build).resolve()), str(copy)))
    return copy


def differences(first, second):
    complaints = []
    for one, other in zip(first, second):
        if one.name != other.name:
            complaints.append(f"{one.name} is called {other.name} the second time")
        elif one.read_bytes() != other.read_bytes():
            complaints.append(f"{one.name} is packed differently the second time")
    return complaints


def path_complaints(build):
    program = Path(build, PROGRAM).read_bytes()
    return [f"the program holds {path}" for path in (str(PROJECT), str(Path(build).resolve()))
            if path.encode() in program]


def main(build):
    with tempfile.TemporaryDirectory() as folder:
        complaints = resource_complaints(build, folder) + path_complaints(build)
        first = pack(build, Path(folder, "first"))
        other = Path(folder, "other", "temporary")
        other.mkdir(parents=True)
        old = os.umask(0o077)
        second = pack(elsewhere(build, folder), Path(folder, "second"), before=LATER,
                      TMPDIR=str(other), TZ="Asia/Tokyo", LANG="C.UTF-8", HOME=folder)
        os.umask(old)
        complaints += differences(first, second)
    return report(complaints)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
