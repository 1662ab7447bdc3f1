"""What the checks of the source read, and how they end."""

from pathlib import Path


def texts(src, *patterns):
    """The files below `src` that a pattern fits: path below it to text."""
    root = Path(src)
    return {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8")
            for pattern in patterns for path in root.rglob(pattern)}


def verdict(said, files):
    """Tells the complaints; what the program ends with. To have looked at nothing is one."""
    for sentence in said:
        print(sentence)
    print(f"{len(files)} files looked at, {len(said)} complaints")
    return 1 if said or not files else 0
