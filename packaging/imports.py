"""Which Debian packages bring the QML modules that a build's views import, whatever those import in
turn. Nothing links them, so nothing else knows of them.

imports.py BUILD
"""

import re
import subprocess
import sys
from pathlib import Path

OURS = re.compile(r"Vellix(\.|$)")
IMPORT = re.compile(r"^\s*import\s+([A-Z][\w.]*|Qt\.[\w.]+)", re.MULTILINE)
# In the description of a module what it needs, and what comes with it wherever that is there.
# ("optional import" names the looks of other systems.)
NEEDS = re.compile(r"^(?:depends|import) (\S+)", re.MULTILINE)
VIEW = re.compile(r"^(?:singleton )?\w+ [\d.]+ (\S+\.qml)$", re.MULTILINE)
# For the designer of forms, who brings modules of their own.
DESIGNER = "/designer/"


class Unknown(Exception):
    """A module that no installed package has."""


def imported(path):
    """The modules that a view or the description of a module names."""
    text = path.read_text(encoding="utf-8", errors="replace")
    return set((NEEDS if path.name == "qmldir" else IMPORT).findall(text))


def imported_by_us(build):
    found = set()
    for description in Path(build, "qml").rglob("qmldir"):
        found |= imported(description)
        # By their list, since a view that is no more may still lie there.
        for view in VIEW.findall(description.read_text(encoding="utf-8")):
            found |= imported(description.parent / view)
    return {module for module in found if not OURS.match(module)}


def said_by(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def modules_folder():
    return Path(said_by("qtpaths6", "--query", "QT_INSTALL_QML").strip())


def package_of(path):
    try:
        return said_by("dpkg-query", "--search", str(path)).split(":")[0]
    except subprocess.CalledProcessError:
        raise Unknown(f"no package is installed that has {path}") from None


def imported_by(package):
    found = set()
    for line in said_by("dpkg-query", "--listfiles", package).splitlines():
        if line.endswith((".qml", "/qmldir")) and DESIGNER not in line:
            found |= imported(Path(line))
    return found


def packages(build):
    """Sorted names of packages."""
    folder, found, seen = modules_folder(), set(), set()
    waiting = imported_by_us(build)
    while waiting:
        module = waiting.pop()
        if module in seen:
            continue
        seen.add(module)
        package = package_of(folder / module.replace(".", "/") / "qmldir")
        if package not in found:
            found.add(package)
            waiting |= imported_by(package)
    return sorted(found)


if __name__ == "__main__":
    print("\n".join(packages(sys.argv[1])))
