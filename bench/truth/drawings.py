"""Pictures and barcodes as SVG on a canvas of one size, and where on it something differs."""

import random

from book import Art

WIDTH, HEIGHT = 200.0, 110.0  # points
LEFT, TOP, WIDE, HIGH = 20.0, 13.0, 160.0, 84.0  # of the drawing on its canvas
COLUMNS, ROWS = 3, 2
RADIUS = 15.0
MODULE = 0.936  # points: 0.33 mm, a barcode in its own size
BARS_HIGH = 60.0
COLOURS = ["#b02020", "#1f6f3a", "#23408f", "#c98a12", "#5a2a7a", "#157f8c", "#333333"]
SHAPES = ["disc", "square", "wedge", "ring"]

LEFT_ODD = ["0001101", "0011001", "0010011", "0111101", "0100011", "0110001", "0101111", "0111011",
            "0110111", "0001011"]
PARITIES = ["OOOOOO", "OOEOEE", "OOEEOE", "OOEEEO", "OEOOEE", "OEEOOE", "OEEEOO", "OEOEOE",
            "OEOEEO", "OEEOEO"]
FLIP = str.maketrans("01", "10")

Rect = tuple[float, float, float, float]


def svg(art: Art, marked: bool = False) -> str:
    """On a canvas of its own; marked: the canvas alone, in a colour that no book has."""
    if marked:
        inner = f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ff00ff"/>'
    elif art.change == "missing":
        inner = ""
    else:
        inner = (f'<g transform="translate({art.aside[0]} {art.aside[1]})">'
                 f'{bars(art.digits) if art.digits else picture(art)}</g>')
    return canvas(inner)


def canvas(inner: str, width: float = WIDTH, height: float = HEIGHT) -> str:
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}pt" height="{height}pt" '
            f'viewBox="0 0 {width} {height}">{inner}</svg>')


def places(art: Art) -> list[Rect]:
    """What a reader would point at, on the canvas of the changed one; more than one may do."""
    whole = (LEFT, TOP, WIDE, HIGH)
    if art.digits:
        return [(bars_left(), TOP, 95 * MODULE, BARS_HIGH),
                (bars_left() - 9, TOP, 95 * MODULE + 9, BARS_HIGH + 12)]
    if art.change == "changed":
        x, y = centre(art.cell)
        return [(x - RADIUS, y - RADIUS, 2 * RADIUS, 2 * RADIUS)]
    if art.change == "moved":
        aside, down = art.aside
        moved = (LEFT + aside, TOP + down, WIDE, HIGH)
        return [moved, (LEFT + min(aside, 0), TOP + min(down, 0), WIDE + abs(aside),
                        HIGH + abs(down))]
    return [whole]


def centre(cell: int) -> tuple[float, float]:
    column, row = cell % COLUMNS, cell // COLUMNS
    return (LEFT + WIDE * (column + 0.5) / COLUMNS, TOP + HIGH * (row + 0.5) / ROWS)


def picture(art: Art) -> str:
    rng = random.Random(art.seed)
    tint = rng.choice(["#dfe8f2", "#f2e6d8", "#e2efdf"])
    parts = [f'<defs><linearGradient id="g"><stop offset="0" stop-color="{tint}"/><stop offset="1" '
             f'stop-color="#f8f8f4"/></linearGradient></defs><rect x="{LEFT}" y="{TOP}" '
             f'width="{WIDE}" height="{HIGH}" fill="url(#g)" stroke="#444"/>']
    for cell in range(COLUMNS * ROWS):
        shape, colour = rng.randrange(len(SHAPES)), rng.randrange(len(COLOURS))
        if art.change == "changed" and cell == art.cell:
            # Every second change is one of colour alone.
            colour += 2
            shape += 1 if art.seed % 2 else 0
        parts.append(drawn(SHAPES[shape % len(SHAPES)], COLOURS[colour % len(COLOURS)],
                           *centre(cell)))
    return "".join(parts)


def drawn(shape: str, colour: str, x: float, y: float) -> str:
    r = RADIUS
    if shape == "disc":
        return f'<circle cx="{x}" cy="{y}" r="{r}" fill="{colour}"/>'
    if shape == "ring":
        return (f'<circle cx="{x}" cy="{y}" r="{r - 3}" fill="none" stroke="{colour}" '
                'stroke-width="6"/>')
    if shape == "square":
        return f'<rect x="{x - r}" y="{y - r}" width="{2 * r}" height="{2 * r}" fill="{colour}"/>'
    return f'<path d="M{x - r} {y + r}L{x} {y - r}L{x + r} {y + r}Z" fill="{colour}"/>'


def bars_left() -> float:
    return (WIDTH - 95 * MODULE) / 2


def modules(digits: str) -> str:
    """EAN-13: a 1 for each module that is dark."""
    left = ""
    for digit, parity in zip(digits[1:7], PARITIES[int(digits[0])]):
        odd = LEFT_ODD[int(digit)]
        left += odd if parity == "O" else odd.translate(FLIP)[::-1]
    right = "".join(LEFT_ODD[int(digit)].translate(FLIP) for digit in digits[7:])
    return "101" + left + "01010" + right + "101"


def bars(digits: str) -> str:
    parts = []
    for i, dark in enumerate(modules(digits)):
        if dark == "1":
            parts.append(f'<rect x="{bars_left() + i * MODULE:.3f}" y="{TOP}" '
                         f'width="{MODULE:.3f}" height="{BARS_HIGH}"/>')
    for text, x in ((digits[0], bars_left() - 8), (digits[1:7], bars_left() + 8 * MODULE),
                    (digits[7:], bars_left() + 54 * MODULE)):
        parts.append(f'<text x="{x:.2f}" y="{TOP + BARS_HIGH + 10}" font-family="DejaVu Sans Mono" '
                     f'font-size="9">{text}</text>')
    return "".join(parts)
