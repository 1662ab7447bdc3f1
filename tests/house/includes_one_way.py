"""Fails when a folder of src/ includes, or a view imports, what stands above it.

includes_one_way.py SRC
"""

import re
import sys
from graphlib import CycleError, TopologicalSorter

from source import texts, verdict

# From the ground up. Folders of one line may use one another, as long as no circle comes of it.
FLOORS = [
    ["platform", "records"],
    ["gateway", "bridge"],
    ["store"],
    ["pictures"],
    ["pieces"],
    ["board", "compare", "ticket", "inspector", "notes", "approval", "jobs", "update", "profile"],
    ["shell"],
]
FLOOR = {folder: number for number, line in enumerate(FLOORS) for folder in line}
ADAPTERS = ("platform/qt/", "platform/linux/", "platform/macos/")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([\w./]+)"', re.MULTILINE)
IMPORT = re.compile(r"^\s*import\s+Vellix\.(\w+)", re.MULTILINE)


def uses_of(path, text):
    """The paths in src/ that a file reaches for."""
    if path.endswith(".qml"):
        return [name.lower() + "/" for name in IMPORT.findall(text)]
    return [name for name in INCLUDE.findall(text) if name.split("/")[0] in FLOOR and "/" in name]


def is_logic(path):
    name = path.rsplit("/", 1)[-1]
    return name == name.lower() and name != "main.cpp" and not path.startswith(("bridge/", *ADAPTERS))


def complaints(files):
    """files: path below src/ to text. Returns sentences, none when all is well."""
    said, graph = [], {}
    for path, text in sorted(files.items()):
        folder = path.split("/")[0]
        if folder not in FLOOR:
            said.append(f"{path}: the folder {folder} has no place; give it one in this check")
            continue
        for used in uses_of(path, text):
            other = used.split("/")[0]
            if other not in FLOOR:
                said.append(f"{path}: uses {used}, which has no place")
                continue
            if FLOOR[other] > FLOOR[folder]:
                said.append(f"{path}: uses {used}, which stands above it")
            # The adapters know the ports and whatever port values are made of.
            if is_logic(path) and used.startswith(("bridge/", *ADAPTERS)):
                said.append(f"{path}: logic uses {used}, which is Qt's side")
            if other != folder and not path.startswith(ADAPTERS):
                graph.setdefault(folder, set()).add(other)
    try:
        TopologicalSorter(graph).prepare()
    except CycleError as error:
        said.append("a circle: " + " -> ".join(error.args[1]))
    return said


def main(src):
    files = texts(src, "*.hpp", "*.cpp", "*.mm", "*.qml")
    return verdict(complaints(files), files)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
