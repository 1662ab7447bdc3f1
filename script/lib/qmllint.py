"""Says what qmllint has against views, a line each; fails when there is anything.

qmllint.py IMPORTS VIEW...      IMPORTS: a folder of QML modules, as vellix_view_fields leaves it

Every view is read as one whose components are bound, so that what is said of an id's fields is looked
through in all of them. Those that a Loader makes are bound in lint alone: Qt 6.4 cannot make them.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

BOUND = "pragma ComponentBehavior: Bound"


def bound(view, folder):
    """The path of a copy, its lines numbered as they are."""
    text = pathlib.Path(view).read_text(encoding="utf-8")
    copy = pathlib.Path(folder, os.path.relpath(view).replace("..", "up"))
    copy.parent.mkdir(parents=True, exist_ok=True)
    copy.write_text(text if BOUND in text else f"{BOUND}; {text}", encoding="utf-8")
    return str(copy)


def main(imports, *views):
    with tempfile.TemporaryDirectory() as folder:
        copies = {bound(view, folder): os.path.relpath(view) for view in views}
        said = subprocess.run(["/usr/lib/qt6/bin/qmllint", "--json", "-", "-I", imports, *copies],
                              stdout=subprocess.PIPE, check=False).stdout
    complaints = ["{}:{}:{}: {}".format(copies[file["filename"]], warning.get("line", 1),
                                        warning.get("column", 1), warning["message"])
                  for file in json.loads(said)["files"] for warning in file["warnings"]
                  if warning["type"] != "info"]
    for complaint in complaints:
        print(complaint)
    return bool(complaints)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
