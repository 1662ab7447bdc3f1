"""Changes the pages of a finished PDF: their number, their order, their size, their inks."""

import random
import re
import subprocess
from pathlib import Path

from places import sizes
from truths import Truth

EACH = 6  # pages inserted, missing and moved in a file
INKS = ["Spot Orange", "PANTONE 185 C", "Varnish", "Gold 871", "HKS 43 K"]


def qpdf(*arguments: str | Path) -> None:
    done = subprocess.run(["qpdf", "--warning-exit-0", *map(str, arguments)], capture_output=True)
    if done.returncode:
        raise RuntimeError(f"qpdf: {done.stderr.decode()}")


def reordered(pdf: Path, stranger: Path, out: Path, rng: random.Random) -> list[Truth]:
    """Pages missing, moved, and inserted out of another file, some pages apart."""
    count, strangers = len(sizes(pdf)), len(sizes(stranger))
    places = rng.sample(range(1, count - 1, 2), min(3 * EACH, (count - 2) // 2))
    third = len(places) // 3
    gone, moving, behind = (set(places[i * third:(i + 1) * third]) for i in range(3))
    order: list[tuple[str, int]] = []
    for page in range(count):
        if page not in gone and page not in moving:
            order.append(("own", page))
        if page in behind:
            order.append(("other", rng.randrange(strangers)))
    for page in sorted(moving):
        order.insert(far_place(order, page, rng), ("moved", page))
    write(order, pdf, stranger, out)
    truths = [Truth("page missing", page, f"page {page + 1} of the reference")
              for page in sorted(gone)]
    for i, (what, page) in enumerate(order):
        if what == "other":
            truths.append(Truth("page inserted", i, f"page {i + 1}"))
        elif what == "moved":
            truths.append(Truth("page moved", i, f"was page {page + 1}", partner=page))
    return truths


def far_place(order: list[tuple[str, int]], page: int, rng: random.Random) -> int:
    """Between two pages that kept their order, at least four of them from where it stood."""
    good = [i for i in range(1, len(order)) if order[i - 1][0] == order[i][0] == "own"
            and abs(order[i][1] - page) > 4]
    return rng.choice(good)


def write(order: list[tuple[str, int]], pdf: Path, stranger: Path, out: Path) -> None:
    parts: list[str | Path] = []
    for what, page in order:
        parts += [stranger if what == "other" else pdf, str(page + 1)]
    qpdf("--empty", "--pages", *parts, "--", out)


def resized_and_inked(pdf: Path, pages: list[int], out: Path, rng: random.Random) -> list[Truth]:
    """Every second of these pages gets another size, each its own, the others a patch in an ink."""
    truths, current = [], out.with_suffix(".step.pdf")
    qpdf("--qdf", "--object-streams=disable", "--empty", "--pages", pdf, "--", current)
    data = current.read_bytes()
    for turn, page in enumerate(pages):
        if turn % 2 == 0:
            wide, high = sizes(pdf)[page]
            data = resized(data, page, (wide - rng.uniform(6, 40), high))
            truths.append(Truth("page size changed", page))
    current.write_bytes(data)
    for turn, page in enumerate(pages):
        if turn % 2:
            wide, high = sizes(pdf)[page]
            x, y = rng.uniform(0.1, 0.7) * wide, rng.uniform(0.03, 0.2) * high
            patch = out.with_suffix(".patch.pdf")
            ink = f"{INKS[turn // 2 % len(INKS)]} {turn}"
            patch.write_bytes(in_ink(wide, high, (x, y, 60, 24), ink))
            following = out.with_suffix(f".{turn}.pdf")
            qpdf(current, "--overlay", patch, f"--to={page + 1}", "--from=1", "--", following)
            current.unlink()
            current = following
            box = (x / wide, 1 - (y + 24) / high, 60 / wide, 24 / high)
            truths.append(Truth("spot colour added", page, ink, [[box]], told=[(page, box)]))
    current.rename(out)
    out.with_suffix(".patch.pdf").unlink(missing_ok=True)
    return truths


def resized(data: bytes, page: int, size: tuple[float, float]) -> bytes:
    """The page cut at its right to that size, in the plain form that qpdf writes."""
    start = re.search(rb"%% Page %d\n" % (page + 1), data)
    box = re.compile(rb"/MediaBox (\[[^\]]*\]|\d+ 0 R)").search(data, start.end())
    new = b"/MediaBox [ 0 0 %.2f %.2f ]" % size
    return data[:box.start()] + new + data[box.end():]


def in_ink(wide: float, high: float, box: tuple[float, float, float, float], ink: str) -> bytes:
    """A page with nothing but a patch in a spot colour."""
    content = b"/S cs 0.8 scn %.2f %.2f %.2f %.2f re f" % box
    name = ink.replace(" ", "#20").encode()
    objects = [
        b"<< /Type /Catalog /Pages 2 0 R >>",
        b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 %.3f %.3f] /Contents 4 0 R /Resources << "
        b"/ColorSpace << /S [/Separation /%s /DeviceCMYK << /FunctionType 2 /Domain [0 1] /C0 "
        b"[0 0 0 0] /C1 [0 0.6 0.9 0] /N 1 >>] >> >> >>" % (wide, high, name),
        b"<< /Length %d >>\nstream\n%s\nendstream" % (len(content), content)]
    data, offsets = b"%PDF-1.4\n", []
    for number, one in enumerate(objects, 1):
        offsets.append(len(data))
        data += b"%d 0 obj\n%s\nendobj\n" % (number, one)
    table = b"".join(b"%010d 00000 n \n" % offset for offset in offsets)
    return data + (b"xref\n0 5\n0000000000 65535 f \n%strailer\n<< /Size 5 /Root 1 0 R >>\n"
                   b"startxref\n%d\n%%%%EOF\n" % (table, len(data)))
