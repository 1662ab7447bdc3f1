"""Fails when the papers of the package differ from what they are drawn from: its copyright file from
the licences, its service file from its desktop entry.

papers_are_true.py BUILD
"""

import re
import sys

from packing import PROJECT, report

LICENCES = {"*": PROJECT / "LICENSE",
            "assets/node_modules/@phosphor-icons/core/*":
                PROJECT / "assets/node_modules/@phosphor-icons/core/LICENSE"}
PACKAGING = PROJECT / "packaging"
NAME = "example.tessarine.Vellix"


def paragraphs(text):
    """The paragraphs of a copyright file, by field."""
    found = []
    for paragraph in text.strip().split("\n\n"):
        fields = re.findall(r"^([\w-]+):[ \t]*(.*(?:\n[ \t].*)*)", paragraph, re.MULTILINE)
        found.append(dict(fields))
    return found


def licence_texts(found):
    """By name, as a licence file has them."""
    texts = {}
    for fields in found:
        if "License" in fields and "Files" not in fields:
            name, *lines = fields["License"].split("\n")
            texts[name] = "\n".join("" if line == " ." else line[1:] for line in lines)
    return texts


def copyright_complaints(text):
    found = paragraphs(text)
    texts = licence_texts(found)
    complaints = []
    told = {fields["Files"]: fields for fields in found if "Files" in fields}
    for files, path in LICENCES.items():
        holder, body = re.search(r"Copyright \(c\) (.*)\n\n((?:.*\n)*)",
                                 path.read_text(encoding="utf-8")).groups()
        fields = told.get(files, {})
        if fields.get("Copyright") != holder:
            complaints.append(f"of {files} it tells {fields.get('Copyright')}, not {holder}")
        if texts.get(fields.get("License")) != body.strip():
            complaints.append(f"of {files} it tells another licence than {path}")
    for fields in told.values():
        if fields["License"] not in texts:
            complaints.append(f"the licence {fields['License']} is not told")
    return complaints


def name_complaints():
    entry = (PACKAGING / f"{NAME}.desktop").read_text(encoding="utf-8").splitlines()
    service = (PACKAGING / f"{NAME}.service.in").read_text(encoding="utf-8").splitlines()
    complaints = []
    for line in ("MimeType=x-scheme-handler/sorel;", "DBusActivatable=true", "Exec=vellix %u"):
        if line not in entry:
            complaints.append(f"the desktop entry does not say {line}")
    if f"Name={NAME}" not in service:
        complaints.append(f"the service file does not name {NAME}")
    return complaints


def main(_):
    text = (PACKAGING / "copyright").read_text(encoding="utf-8")
    return report(copyright_complaints(text) + name_complaints())


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
