"""Fails when lint does not see a field of a view value that is misspelt, however it is reached,
in the view itself and in what a Loader makes.

lint_sees_fields.py BUILD
"""

import subprocess
import sys
import tempfile
from pathlib import Path

LINT = Path(__file__).resolve().parents[2] / "script" / "lib" / "qmllint.py"

VIEW = """import QtQuick
import Vellix.Board
import Vellix.Compare

Item {{
    id: view

    required property CompareModel compare
    required property PlanModel plan
    required property noteMarkView mark
    readonly property canvasBarView bar: compare.bar

    Text {{
        text: {0}
    }}

    Loader {{
        sourceComponent: Text {{
            text: {0}
        }}
    }}
}}
"""
PLACES = 2

# What is right, and the same misspelt: of a model's value, of one in one, of one that was handed
# over, of one that is told by another name, of what is Qt's own in one.
SPELLINGS = [
    ("view.compare.bar.first", "view.compare.bar.frist"),
    ("view.plan.due.chip.text", "view.plan.due.chip.txt"),
    ("view.mark.number", "view.mark.nummer"),
    ("view.bar.place", "view.bar.plaice"),
    ("view.mark.box.width", "view.mark.box.wide"),
]


def said_of(imports, folder, expression):
    path = Path(folder) / "View.qml"
    path.write_text(VIEW.format(expression), encoding="utf-8")
    ran = subprocess.run([sys.executable, "-B", LINT, imports, path], stdout=subprocess.PIPE,
                         text=True, check=False)
    return ran.returncode, ran.stdout


def main(build):
    complaints = []
    with tempfile.TemporaryDirectory() as folder:
        imports = Path(folder) / "modules"
        subprocess.run([Path(build) / "vellix_view_fields", Path(build) / "qml", imports], check=True)
        for right, wrong in SPELLINGS:
            code, said = said_of(imports, folder, right)
            if code:
                complaints.append(f"{right} is right, and lint says: {said}")
            code, said = said_of(imports, folder, wrong)
            misspelt = wrong.rsplit(".", 1)[-1]
            seen = [line for line in said.splitlines() if misspelt in line]
            if not code or len(seen) != PLACES:
                complaints.append(f"of {wrong} lint says in {PLACES} places: {seen}")
    for complaint in complaints:
        print(complaint)
    return bool(complaints)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
