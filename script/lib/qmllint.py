"""Says what qmllint has against views, a line each; fails when there is anything.

qmllint.py IMPORTS VIEW...      IMPORTS: a folder of QML modules, as vellix_view_fields leaves it
"""

import json
import os
import subprocess
import sys


def main(imports, *views):
    said = subprocess.run(["/usr/lib/qt6/bin/qmllint", "--json", "-", "-I", imports, *views],
                          stdout=subprocess.PIPE, check=False).stdout
    complaints = ["{}:{}:{}: {}".format(os.path.relpath(file["filename"]), warning.get("line", 1),
                                        warning.get("column", 1), warning["message"])
                  for file in json.loads(said)["files"] for warning in file["warnings"]
                  if warning["type"] != "info"]
    for complaint in complaints:
        print(complaint)
    return bool(complaints)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
